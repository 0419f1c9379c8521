# fish completion of varnel
complete -c varnel -f
complete -c varnel -s h -l help -d 'Print help and leave'
complete -c varnel -s V -l version -d 'Print the version and leave'
complete -c varnel -n __fish_use_subcommand -a help -d 'Print help, of varnel or of a command'
complete -c varnel -n '__fish_seen_subcommand_from help' -a 'help parse inspect barcode compose specimen element soundex'
complete -c varnel -n __fish_use_subcommand -a parse -d 'Read documents and print their twelve values'
complete -c varnel -n __fish_use_subcommand -a inspect -d 'Say whether documents are right, and if not, where'
complete -c varnel -n __fish_use_subcommand -a barcode -d "Read barcodes of driver's licences and print the same twelve values"
complete -c varnel -n __fish_use_subcommand -a compose -d 'Compose zones from the values of documents'
complete -c varnel -n __fish_use_subcommand -a specimen -d 'Make zones of invented people, for tests'
complete -c varnel -n __fish_use_subcommand -a element -d 'Look AAMVA data elements up in the five element tables'
complete -c varnel -n __fish_use_subcommand -a soundex -d 'Print the Soundex codes of names'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect barcode element soundex' -l format -x -a 'json table csv' -d 'How to print'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect' -l each -x -a 'line block zone' -d 'Read many documents from each file'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect' -l jobs -x -d 'With --each, read with so many threads'
complete -c varnel -n '__fish_seen_subcommand_from parse barcode' -l slots -d 'Show every filled slot of the record too'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect barcode' -l with-source -d 'Print the file and the line of each document'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect' -l verbose -d 'With --each, say why each document was refused'
complete -c varnel -n '__fish_seen_subcommand_from inspect' -l date -x -d 'The reference date'
complete -c varnel -n '__fish_seen_subcommand_from inspect' -l looks -d 'Take the files for several looks at one document'
complete -c varnel -n '__fish_seen_subcommand_from inspect' -l repair -x -a 'off columns digits' -d 'Put right what an optical reader gets wrong'
complete -c varnel -n '__fish_seen_subcommand_from barcode' -l info -d 'Add the version, the issuer, elements without a slot and findings'
complete -c varnel -n '__fish_seen_subcommand_from parse inspect barcode' -F
complete -c varnel -n '__fish_seen_subcommand_from compose specimen' -l format -x -a 'text json' -d 'How to print'
complete -c varnel -n '__fish_seen_subcommand_from specimen' -l layout -x -a 'TD1 TD2 TD3 MRV-A MRV-B' -d 'The layout of the zones'
complete -c varnel -n '__fish_seen_subcommand_from specimen' -l count -x -d 'How many zones'
complete -c varnel -n '__fish_seen_subcommand_from specimen' -l seed -x -d 'The same seed makes the same zones'
complete -c varnel -n '__fish_seen_subcommand_from compose' -F
