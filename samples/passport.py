"""Reads a passport through ctypes: no binding to build, the shared library is enough."""

import ctypes


class String(ctypes.Structure):  # STRING
    _fields_ = [("str", ctypes.POINTER(ctypes.c_char)), ("len", ctypes.c_int)]


class Record(ctypes.Structure):  # PARSE_RESULT
    _fields_ = [("parser_type", ctypes.c_uint), ("parser", ctypes.c_uint), ("fields", String * 139),
                ("buffer", ctypes.c_void_p), ("buffer_size", ctypes.c_int), ("data_size", ctypes.c_int)]


class Pair(ctypes.Structure):  # VARNEL_PAIR
    _fields_ = [("key", ctypes.c_char_p), ("value", String)]


varnel = ctypes.CDLL("libvarnel.so.1")
varnel.varnel_utf16_length.argtypes = [ctypes.c_char_p, ctypes.c_size_t]
varnel.varnel_parse_mrz.argtypes = [ctypes.c_char_p, ctypes.c_int, ctypes.POINTER(Record), ctypes.c_char_p,
                                    ctypes.c_int]
varnel.varnel_export.argtypes = [ctypes.POINTER(Record), ctypes.POINTER(Pair)]


def parse_mrz(text):
    """The twelve values of a document in their order, or None where no layout accepts the text."""
    data = text.encode("utf-8", "surrogatepass")
    record, buffer, pairs = Record(), ctypes.create_string_buffer(1024), (Pair * 12)()
    length = varnel.varnel_utf16_length(data, len(data))
    if varnel.varnel_parse_mrz(data, length, ctypes.byref(record), buffer, len(buffer)) != 0:
        return None
    varnel.varnel_export(ctypes.byref(record), pairs)
    return {pair.key.decode(): ctypes.string_at(pair.value.str, pair.value.len).decode() for pair in pairs}


if __name__ == "__main__":
    document = parse_mrz("P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                         "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n")
    for key, value in document.items():
        print(f"{key}={value}")
