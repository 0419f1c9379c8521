#include <Varnel/documents/inspect.h>
