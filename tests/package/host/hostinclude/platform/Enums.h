// A host header named like one of the library's: the library must never reach it.
#error "a library header reached the host's platform/Enums.h"
