#!/bin/sh
varnel inspect --each block --date 2026-11-21 --format csv <<'END' | awk -F, 'NR > 1 { print $2 }' | sort | uniq -c | awk '{ print $2, $1 }'
P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
L898902C36UTO7408122F1204159ZE184226B<<<<<10

I<UTOD231458907<<<<<<<<<<<<<<<
7408122F1204159UTO<<<<<<<<<<<6
ERIKSSON<<ANNA<MARIA<<<<<<<<<<

I<UTOD231458907<<<<<<<<<<<<<<<
7408172F1204159UTO<<<<<<<<<<<6
ERIKSSON<<ANNA<MARIA<<<<<<<<<<
END
