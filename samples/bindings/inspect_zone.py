import varnel

zone = """P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
L898902C36UTO7408122F1204159ZE184226B<<<<<10"""

document = varnel.inspect(zone, date="2026-11-21")
print(document["verdict"])
for name, field in document["fields"].items():
    print(f"{name}: {field['value']} ({field['status']})")
