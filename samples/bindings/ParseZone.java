import java.util.Map;
import varnel.Varnel;

class ParseZone {
  public static void main(String[] arguments) {
    final String zone =
        "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
            + "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
    final Map<String, String> document = Varnel.parse(zone);
    if (document != null) { // a travel document's zone
      document.forEach((key, value) -> System.out.println(key + "=" + value));
    }
  }
}
