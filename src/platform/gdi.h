// GDI under its own names: the system's on Windows; elsewhere our own, for the calls that
// the converters make.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include "platform/portable/gdi_api.h"
#endif
