#pragma once

#include <TEVSystemLib/TEVSystemAbi.h>

// TEVSYSTEMLIB_API marks what the DLL exports. A consumer that links the objects statically defines
// TEVSYSTEMLIB_STATIC.
#if !defined(_WIN32) || defined(TEVSYSTEMLIB_STATIC)
#define TEVSYSTEMLIB_API
#elif defined(TEVSystemLib_EXPORTS)
#define TEVSYSTEMLIB_API __declspec(dllexport)
#else
#define TEVSYSTEMLIB_API __declspec(dllimport)
#endif
