#!/usr/bin/env python3
"""The nine exports in Python: nine_exports.py DRAWING.dxf METAFILE.emf"""
import ctypes
import sys
from ctypes import POINTER, byref, c_char_p, c_int32, c_uint8, c_uint32, c_void_p

windows = sys.platform == "win32"
library = ctypes.CDLL("Hexlume.dll" if windows else "libhexlume.so")
metafiles = ctypes.WinDLL("gdi32") if windows else library


class RECT(ctypes.Structure):
    _fields_ = [(edge, c_int32) for edge in ("left", "top", "right", "bottom")]


OUT = POINTER(c_void_p)
# Path, out, then the arguments in the order of hexlume.h.
arguments = {
    "vzMetaMake": [c_char_p, OUT, c_int32, c_int32],
    "vzReMetaMake": [c_char_p, OUT, c_int32, RECT, c_int32, c_int32],
    "vzRotMetaMake": [OUT],
    "vzFullSizeMetaMake": [c_char_p, OUT, c_int32, c_int32],
    "vzDXFMetaMake": [c_char_p, OUT, c_int32, c_int32, c_int32],
    "vzDXFReMetaMake": [c_char_p, OUT, c_int32, RECT, c_int32, c_int32, c_int32],
    "vzDXFRotMetaMake": [OUT, c_int32],
    "vzDXFFullSizeMetaMake": [c_char_p, OUT, c_int32, c_int32, c_int32],
    "vzDXFSetFontMode": [c_uint8],
}
for name, types in arguments.items():
    getattr(library, name).argtypes = types
library.vzDXFSetFontMode.restype = c_uint8
metafiles.GetEnhMetaFileBits.argtypes = [c_void_p, c_uint32, c_char_p]
metafiles.GetEnhMetaFileBits.restype = c_uint32
metafiles.DeleteEnhMetaFile.argtypes = [c_void_p]


def take_bytes(metafile):
    """Returns the bytes of a metafile and gives it back."""
    size = metafiles.GetEnhMetaFileBits(metafile, 0, None)
    buffer = ctypes.create_string_buffer(size)
    metafiles.GetEnhMetaFileBits(metafile, size, buffer)
    metafiles.DeleteEnhMetaFile(metafile)
    return buffer.raw


if __name__ == "__main__":
    path = sys.argv[1].encode("mbcs" if windows else "utf-8")  # the ANSI code page on Windows
    metafile = c_void_p()
    library.vzDXFSetFontMode(1)
    if library.vzDXFReMetaMake(path, byref(metafile), 0, RECT(0, 0, 100, 100), 0, 0, 0) == 0:
        take_bytes(metafile)
    code = library.vzDXFMetaMake(path, byref(metafile), 0, 0, 0)
    if code == 0:
        with open(sys.argv[2], "wb") as file:
            file.write(take_bytes(metafile))
    sys.exit(code)
