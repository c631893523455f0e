// The project hides every symbol by default; the portable runtime exports its functions and the
// classes whose type information must be shared across libraries (a _com_error thrown in one
// library is caught in another).
#pragma once

#define AUTOMATION_API __attribute__((visibility("default")))
