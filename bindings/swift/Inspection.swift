// An inspected document, in the shape of docs/inspection.schema.json. Keys that are not known are ignored.
import Foundation
import Varnel

/// How far characters may be changed.
public enum Repair: String, Codable {
  case off, columns, digits

  var level: Int32 {
    switch self {
    case .off: return Int32(VARNEL_REPAIR_OFF)
    case .columns: return Int32(VARNEL_REPAIR_COLUMNS)
    case .digits: return Int32(VARNEL_REPAIR_DIGITS)
    }
  }
}

/// Why a text could not be inspected.
public enum InspectionError: Error {
  /// The text has more than 65,536 bytes of UTF-8.
  case textTooLong
}

public struct Inspection: Codable, Equatable {
  public enum Verdict: String, Codable {
    case valid, repaired, voted, doubtful, refused
  }

  public enum Status: String, Codable {
    case empty, badCharacters, notADate, unknown, checkFailed, ok
  }

  public enum Proof: String, Codable {
    case digits, digit, composite, list, none
  }

  /// Bytes of the input's UTF-8 form, from `start` to before `end`.
  public struct Source: Codable, Equatable {
    public let start: Int
    public let end: Int
  }

  /// A field of the zone; what only some kinds of field have is optional.
  public struct Field: Codable, Equatable {
    public let text: String
    public let value: String?
    public let line: Int
    public let column: Int
    public let source: Source
    public let status: Status
    public let proof: Proof
    /// Of the document code.
    public let meaning: String?
    /// Of a state.
    public let name: String?
    public let alpha2: String?
    /// Of a part of the name.
    public let truncated: Bool?
    /// Of a date.
    public let year: Int?
    public let month: Int?
    public let day: Int?
  }

  public struct Check: Codable, Equatable {
    public let line: Int
    public let column: Int
    public let found: String
    public let expected: String
    public let holds: Bool
    public let rule: String?
  }

  public struct Change: Codable, Equatable {
    public let line: Int
    public let column: Int
    public let from: String
    public let to: String
    public let reason: String
  }

  /// A finding or a notice.
  public struct Finding: Codable, Equatable {
    public let code: String
    public let field: String?
    public let line: Int?
    public let column: Int?
  }

  public struct Nearest: Codable, Equatable {
    public struct Line: Codable, Equatable {
      public let expected: Int
      public let found: Int
    }

    public let layout: String
    public let lines: [Line]
  }

  public let version: Int
  public let date: String
  public let repair: Repair
  public let verdict: Verdict
  public let kind: String?
  public let layout: String?
  public let zone: [String]
  public let source: [Source]
  /// By name: "documentNumber", "birthDate" and so on, as the layout has them.
  public let fields: [String: Field]
  public let checks: [String: Check]
  public let changes: [Change]
  public let findings: [Finding]
  public let notices: [Finding]
  public let nearest: Nearest?
  public let expired: Bool?
  public let chipAccess: String?

  /// Finds the zone in a text and inspects it; the reference date is the day of `date` in UTC.
  public static func inspect(_ text: String, date: Date = Date(), repair: Repair = .off) throws -> Inspection {
    var calendar = Calendar(identifier: .gregorian)
    calendar.timeZone = TimeZone(secondsFromGMT: 0)!
    let day = calendar.dateComponents([.year, .month, .day], from: date)
    var options = varnel_inspect_options(
      year: Int32(day.year!), month: Int32(day.month!), day: Int32(day.day!), repair: repair.level)
    var record = varnel_inspection()
    let bytes = Array(text.utf8)
    let status = bytes.withUnsafeBufferPointer { buffer in
      buffer.withMemoryRebound(to: CChar.self) { varnel_inspect($0.baseAddress, $0.count, &options, &record) }
    }
    guard status == ERR_OK else {
      throw InspectionError.textTooLong
    }
    var json = [CChar](repeating: 0, count: Int(varnel_inspection_json(&record, nil, 0)) + 1)
    varnel_inspection_json(&record, &json, json.count)
    return try JSONDecoder().decode(Inspection.self, from: Data(String(cString: json).utf8))
  }
}
