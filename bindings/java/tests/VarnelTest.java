import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertNull;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import java.io.IOException;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.LocalDate;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.stream.Stream;
import org.junit.Test;
import varnel.Varnel;

/** The binding as its users have it: the vectors of the C library, and what bad calls get. */
public class VarnelTest {
  private static final Path ROOT = Path.of(System.getProperty("varnel.root"));
  private static final LocalDate DATE = LocalDate.of(2026, 11, 21);

  private static String passport() throws IOException {
    return Files.readString(ROOT.resolve("samples/passport.mrz"));
  }

  /** The compact object in which the vectors write what is expected; values need no escapes. */
  private static String json(Map<String, String> document) {
    if (document == null) {
      return "null";
    }
    final List<String> pairs = new ArrayList<>();
    document.forEach((key, value) -> pairs.add("\"" + key + "\":\"" + value + "\""));
    return "{" + String.join(",", pairs) + "}";
  }

  @Test
  public void everyVectorIsParsedAsInC() throws IOException {
    int compared = 0;
    try (Stream<Path> files = Files.walk(ROOT.resolve("tests/vectors"))) {
      for (Path file : (Iterable<Path>) files.filter(f -> f.toString().endsWith(".mrz")).sorted()::iterator) {
        final String text;
        try {
          text = StandardCharsets.UTF_8.newDecoder().decode(ByteBuffer.wrap(Files.readAllBytes(file))).toString();
        } catch (CharacterCodingException e) {
          continue; // no UTF-8, which a String cannot hold
        }
        final String expected = Files.readString(Path.of(file.toString().replaceAll("mrz$", "json"))).strip();
        assertEquals(file.toString(), expected, json(Varnel.parse(text)));
        compared++;
      }
    }
    assertTrue(compared + " vectors", compared > 100);
  }

  /** JSON without the white space between its tokens. */
  private static String compact(String json) {
    return json.replaceAll("\\s+(?=(?:[^\"]*\"[^\"]*\")*[^\"]*$)", "");
  }

  /** The text value of a key that stands in the outermost object first. */
  private static String first(String json, String key) {
    return json.replaceFirst("(?s).*?\"" + key + "\": ?\"([^\"]*)\".*", "$1");
  }

  @Test
  public void everyVectorIsInspectedAsInC() throws IOException {
    int compared = 0;
    try (Stream<Path> files = Files.list(ROOT.resolve("tests/documents/vectors"))) {
      for (Path file : (Iterable<Path>) files.filter(f -> f.toString().endsWith(".json")).sorted()::iterator) {
        final String expected = Files.readString(file);
        final String text = Files.readString(Path.of(file.toString().replaceAll("json$", "txt")));
        final LocalDate date = LocalDate.parse(first(expected, "date"));
        final Varnel.Repair repair = Varnel.Repair.valueOf(first(expected, "repair").toUpperCase(Locale.ROOT));
        assertEquals(file.toString(), compact(expected), Varnel.inspect(text, date, repair));
        compared++;
      }
    }
    assertTrue(compared + " vectors", compared > 40);
  }

  @Test
  public void aZoneIsRepaired() throws IOException {
    final String json = Varnel.inspect(passport().replace("7408122F", "74O8122F"), DATE, Varnel.Repair.COLUMNS);
    assertTrue(json, json.contains("\"repair\":\"columns\",\"verdict\":\"repaired\""));
  }

  @Test
  public void aPassportIsInspected() throws IOException {
    final String json = Varnel.inspect(passport(), DATE, Varnel.Repair.OFF);
    assertTrue(json, json.startsWith("{\"version\":1,\"date\":\"2026-11-21\",\"repair\":\"off\",\"verdict\":\"valid\""));
    assertTrue(json, json.contains("\"value\":\"1974-08-12\""));
  }

  @Test
  public void whatIsNoDocumentIsRefused() {
    assertNull(Varnel.parse(""));
    assertNull(Varnel.parse("x".repeat(100_000)));
    assertTrue(Varnel.inspect("", DATE, Varnel.Repair.OFF).contains("\"verdict\":\"refused\""));
  }

  @Test
  public void badCallsAreExceptions() {
    assertThrows(NullPointerException.class, () -> Varnel.parse(null));
    assertThrows(
        IllegalArgumentException.class, () -> Varnel.inspect("<".repeat(65537), DATE, Varnel.Repair.OFF));
  }
}
