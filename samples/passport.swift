import Varnel

let zone = """
  P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
  L898902C36UTO7408122F1204159ZE184226B<<<<<10
  """

if let document = Varnel().parseMRZString(forDictionary: zone) {
  for (key, value) in document.sorted(by: { $0.key < $1.key }) {
    print("\(key)=\(value)")
  }
}  // nil: not a travel document's zone
