// The project hides every symbol by default; the portable runtime exports its functions and the
// classes whose type information must be shared across libraries (a _com_error thrown in one
// library is caught in another). On Windows the runtime's own part is a static library.
#pragma once

#ifdef _WIN32
#define AUTOMATION_API
#else
#define AUTOMATION_API __attribute__((visibility("default")))
#endif
