// Every platform function the library imports, as the raw platform writes them, with the
// prepared platform's Call (prepared_call.h comes first and stands in for the raw platform's
// header).
#include "bench/prepared/prepared_call.h"
#include "tests/raw_platform/raw_platform_functions.cpp"
