#pragma once

// The one include of the system's headers.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <oleacc.h>
#include <olectl.h>
#include <shellapi.h>
