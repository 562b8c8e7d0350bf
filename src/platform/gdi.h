// GDI under its own names: on Windows the system's, elsewhere our own for the calls that the converters make.
#pragma once

#include <windows.h>
