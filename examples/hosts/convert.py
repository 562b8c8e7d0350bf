#!/usr/bin/env python3
"""Converts a drawing with the host library, in Python: convert.py DRAWING.dxf METAFILE.emf"""
import ctypes
import sys
from ctypes import POINTER, byref, c_char_p, c_int32, c_int64, c_uint32, c_void_p, sizeof

PROGRESS = ctypes.CFUNCTYPE(c_int32, c_void_p, c_int32, c_int32, c_int64, c_int64)


class Input(ctypes.Structure):
    _fields_ = [("size", c_uint32), ("reserved", c_uint32), ("path_length", c_int64), ("byte_count", c_int64),
                ("path", c_char_p), ("bytes", c_char_p)]


class Options(ctypes.Structure):
    _fields_ = [("size", c_uint32)] + [(name, c_int32) for name in (
        "format", "sheet", "left", "top", "right", "bottom", "turned", "whole_texts", "monochrome", "half_width",
        "fit", "denominator", "skip_off_layers")] + [
        ("hidden_line_types", c_uint32), ("hidden_layer_count", c_int32), ("limit_milliseconds", c_int64),
        ("limit_strokes", c_int64), ("limit_bytes", c_int64), ("hidden_layers", POINTER(c_char_p)),
        ("progress", PROGRESS), ("user", c_void_p)]


library = ctypes.CDLL("HexlumeHost.dll" if sys.platform == "win32" else "libhexlume_host.so")
library.hexlume_convert.argtypes = [POINTER(Input), POINTER(Options), POINTER(c_void_p)]
library.hexlume_result_metafile.restype = c_void_p
library.hexlume_result_metafile.argtypes = [c_void_p]
library.hexlume_result_metafile_size.restype = c_int64
library.hexlume_result_metafile_size.argtypes = [c_void_p]
library.hexlume_result_message.restype = c_char_p
library.hexlume_result_message.argtypes = [c_void_p, c_int32]
library.hexlume_result_free.argtypes = [c_void_p]


def convert(drawing, hidden_layers=(), **options):
    """Returns the metafile of a drawing's bytes and the sentence that says what became of it."""
    names = (c_char_p * len(hidden_layers))(*(name.encode() for name in hidden_layers))
    given = Options(size=sizeof(Options), hidden_layers=names, hidden_layer_count=len(names), **options)
    source = Input(size=sizeof(Input), bytes=drawing, byte_count=len(drawing))
    result = c_void_p()
    library.hexlume_convert(byref(source), byref(given), byref(result))
    try:
        size = library.hexlume_result_metafile_size(result)
        metafile = ctypes.string_at(library.hexlume_result_metafile(result), size) if size else b""
        return metafile, library.hexlume_result_message(result, 0).decode()
    finally:
        library.hexlume_result_free(result)


def show_progress(user, number, count, done, total):
    print(f"pass {number} of {count}: {done} of {total} bytes", file=sys.stderr)
    return 0  # any other number cancels


if __name__ == "__main__":
    with open(sys.argv[1], "rb") as file:
        emf, message = convert(file.read(), progress=PROGRESS(show_progress))
    print(message)
    with open(sys.argv[2], "wb") as file:
        file.write(emf)
