#!/bin/sh
# Reads three documents, one a line, and prints the names of those that are readable.
{
  echo 'P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<L898902C36UTO7408122F1204159ZE184226B<<<<<10'
  echo 'this is no document'
  echo 'I<UTOD231458907<<<<<<<<<<<<<<<7408122F1204159UTO<<<<<<<<<<<6ERIKSSON<<ANNA<MARIA<<<<<<<<<<'
} | varnel parse --each line --format csv | awk -F, 'NR > 1 && $2 != "" { print $1 ": " $3 ", " $2 }'
