"""Changes every column of every layout's specimen and sees which value changes: layouts.py WORK

The value has to be the one that the pictures of docs/layouts.md show for the column, and no other.
"""

import ctypes
import pathlib
import sys

from support import ROOT, SAMPLES, Prefix, fail

CHARACTERS = "<0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
PERSONAL_NUMBER = 55

# What else a column decides: the document code the layout, and the year of birth the century of the year of
# expiry.
ALSO = {"code": {"documentType", "personalNumber"}, "birthDate": {"expirationDate"}}
SEVERAL = {"names": {"lastName", "firstName", "middleName"}, "code": set()}


def load(libraries):
    """The ctypes sample and the drawing, the one with the shared library of the prefix."""
    real = ctypes.CDLL
    ctypes.CDLL = lambda name: real(str(libraries / name))
    sys.path += [str(SAMPLES), str(ROOT / "docs" / "layouts")]
    import draw
    import passport
    ctypes.CDLL = real
    passport.varnel.varnel_value.restype = passport.String
    return draw, passport


def reader(passport):
    record, buffer, pairs = passport.Record(), ctypes.create_string_buffer(1024), (passport.Pair * 12)()

    def read(zone):
        """The values of a zone with the personal number, or None."""
        varnel = passport.varnel
        if varnel.varnel_parse_mrz(zone.encode(), len(zone), ctypes.byref(record), buffer, len(buffer)) != 0:
            return None
        varnel.varnel_export(ctypes.byref(record), pairs)
        values = {pair.key.decode(): ctypes.string_at(pair.value.str, pair.value.len) for pair in pairs}
        number = varnel.varnel_value(ctypes.byref(record), PERSONAL_NUMBER)
        values["personalNumber"] = ctypes.string_at(number.str, number.len)
        return values

    return read


def check_column(read, zone, column, value, where):
    specimen = read(zone)
    changed, refused = set(), False
    for character in CHARACTERS:
        values = read(zone[:column] + character + zone[column + 1:])
        if values is None:
            refused = True
        else:
            changed |= {key for key in values if values[key] != specimen[key]}
    if value is None and (changed or refused):
        fail(f"{where} is drawn as not read, but it decides {sorted(changed) or 'what is refused'}")
    own = SEVERAL.get(value, {value} - {None})
    if not changed <= own | ALSO.get(value, set()):
        fail(f"{where} is drawn as {value}, but it decides {sorted(changed)}")
    if value == "code" and not refused:
        fail(f"{where} is drawn as looked at, but any character is accepted")
    if own and not changed & own:
        fail(f"{where} is drawn as {value}, but decides nothing")


def main():
    draw, passport = load(Prefix(pathlib.Path(sys.argv[1]) / "moved").libraries)
    read = reader(passport)
    count = 0
    for layout, rows in draw.columns().items():
        zone = "".join(draw.LAYOUTS[layout][0])
        if read(zone) is None:
            fail(f"the specimen of {layout} is refused")
        values = [value for line in draw.owners(layout, rows) for value in line]
        for column, value in enumerate(values):
            check_column(read, zone, column, value, f"{layout}: character {column}")
            count += 1
    print(f"{count} columns of {len(draw.LAYOUTS)} layouts are as drawn")


main()
