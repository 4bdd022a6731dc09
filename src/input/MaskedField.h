// The masked field inside kdMaskEdBox (`txtTexto`): a text field that takes only what its
// mask allows, shows the prompt character at empty positions, and raises ValidationError
// for a character the mask refuses. Without a mask it is a plain field of MaxLength characters.
#pragma once

#include "varnel_controles_export.h"

#include "input/MaskEngine.h"
#include "platform/TextField.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT MaskedField : public TextField
{
    Q_OBJECT

public:
    explicit MaskedField(QWidget *parent = nullptr);

    QString Mask() const { return m_engine.mask(); }
    /// Sets the mask and empties the field.
    void setMask(const QString &mask);
    /// The value (see PromptInclude).
    QString maskedText() const;
    /// Fills the field; a text the mask refuses raises ValidationError and changes nothing.
    void setMaskedText(const QString &text);
    /// The text as displayed, through Format when one is set ("dd/mm/yyyy", "#,##0.00").
    QString FormattedText() const;
    /// The characters entered, without literals or prompts.
    QString ClipText() const;
    QString Format() const { return m_format; }
    void setFormat(const QString &format) { m_format = format; }
    /// The character shown at empty positions ("_" by default).
    QString PromptChar() const { return QString(m_prompt); }
    void setPromptChar(const QString &prompt);
    /// True: the value carries the prompt characters; False: empty positions are blanks and an
    /// empty field's value is "".
    bool PromptInclude() const { return m_promptInclude; }
    void setPromptInclude(bool value) { m_promptInclude = value; }
    /// The prompt character may be typed as input.
    bool AllowPrompt() const { return m_allowPrompt; }
    void setAllowPrompt(bool value) { m_allowPrompt = value; }
    /// The focus moves on once every position of the mask is filled.
    bool AutoTab() const { return m_autoTab; }
    void setAutoTab(bool value) { m_autoTab = value; }
    /// Copying: 0 with the literals, 1 without them.
    qint16 ClipMode() const { return m_clipMode; }
    void setClipMode(qint16 value) { m_clipMode = value; }

Q_SIGNALS:
    void ValidationError(QString &InvalidText, qint16 &StartPosition);

protected:
    void applyKey(QKeyEvent *event) override;
    void insertTyped(const QString &text) override;
    /// Through the mask: a copy without the literals under ClipMode 1, a cut or a delete empties
    /// the selected positions (a paste types the clipboard, as the base does).
    void copyText() override;
    void cutText() override;
    void deleteText() override;

private:
    void refresh(int cursor);
    void eraseSelectionOr(int from, int to);
    void reject(QChar c, int position);

    MaskEngine m_engine;
    QChar m_prompt = u'_';
    bool m_promptInclude = true;
    bool m_allowPrompt = false;
    bool m_autoTab = false;
    qint16 m_clipMode = 0;
    QString m_format;
    bool m_refreshing = false;
};

} // namespace Varnel_Controles
