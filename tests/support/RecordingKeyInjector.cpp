#include "RecordingKeyInjector.h"
