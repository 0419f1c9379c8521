package varnel;

import java.nio.charset.StandardCharsets;
import java.time.LocalDate;
import java.util.LinkedHashMap;
import java.util.Map;

/**
 * Reads passports, ID cards and visas from the text of their machine-readable zone (ICAO Doc 9303).
 *
 * <p>A thin binding of the C libraries: {@code libvarnel_jni} must be on {@code java.library.path}. The methods
 * keep no state and may be called by any number of threads.
 */
public final class Varnel {
  static {
    System.loadLibrary("varnel_jni");
  }

  /** How far characters may be changed. */
  public enum Repair {
    /** Not at all. */
    OFF,
    /** Where a column's kind or a filler leaves one way. */
    COLUMNS,
    /** As columns, and numbers where one look-alike alone makes the check digit hold. */
    DIGITS
  }

  private static final String[] KEYS = text(keys()).split("\0", -1);

  private Varnel() {}

  /**
   * Reads the text of a zone into its twelve values, in their order.
   *
   * @param text the text; line breaks and noise are dropped
   * @return the values by key, empty where the document has none; null where no layout accepts the text
   */
  public static Map<String, String> parse(String text) {
    final byte[] answer = parse(text.getBytes(StandardCharsets.UTF_8));
    if (answer == null) {
      return null;
    }
    final String[] values = text(answer).split("\0", -1);
    final Map<String, String> document = new LinkedHashMap<>();
    for (int i = 0; i < KEYS.length - 1; i++) {
      document.put(KEYS[i], values[i]);
    }
    return document;
  }

  /**
   * Finds the zone in a text and says of every field whether it is right.
   *
   * @param text the text, up to 64 KiB of UTF-8
   * @param date the reference date: dates of birth are not after it
   * @param repair how far characters may be changed
   * @return the inspection as JSON, which docs/inspection.schema.json describes
   * @throws IllegalArgumentException where the text is too long
   */
  public static String inspect(String text, LocalDate date, Repair repair) {
    final byte[] answer =
        inspect(
            text.getBytes(StandardCharsets.UTF_8),
            date.getYear(),
            date.getMonthValue(),
            date.getDayOfMonth(),
            repair.ordinal());
    if (answer == null) {
      throw new IllegalArgumentException("text of more than 65536 bytes, or a year that is not 1 to 9999");
    }
    return text(answer);
  }

  private static String text(byte[] utf8) {
    return new String(utf8, StandardCharsets.UTF_8);
  }

  private static native byte[] keys();

  private static native byte[] parse(byte[] text);

  private static native byte[] inspect(byte[] text, int year, int month, int day, int repair);
}
