#!/bin/sh
varnel compose <<'END'
{"layout": "MRV-B", "documentCode": "V", "issuingState": "UTO", "documentNumber": "L898902C",
 "nationality": "D", "birthDate": "1969-08-06", "sex": "F", "expiryDate": "2031-06-23",
 "primaryIdentifier": "Weiß", "secondaryIdentifier": "Änne", "optionalData": "ZE184226"}
END
