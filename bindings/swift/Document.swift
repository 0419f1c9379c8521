// The twelve values of a document as typed fields.
import Foundation
import Varnel

/// What the machine-readable zone of a travel document says. A value that the document does not have is empty.
public struct Document: Equatable {
  public let firstName: String
  public let lastName: String
  public let middleName: String
  public let licenseNumber: String
  /// Eight digits: year, month, day.
  public let birthDate: String
  /// Eight digits: year, month, day.
  public let expirationDate: String
  /// "M", "F" or empty.
  public let gender: String
  public let countryCode: String
  public let jurisdictionCode: String
  public let nationality: String
  /// "PASSPORT" or "TD".
  public let documentType: String
  public let issueDate: String

  /// Reads the text of a zone (ICAO Doc 9303); nil where no layout accepts it. No check digit is compared and
  /// two-digit years are resolved against 15 February 2018: `Inspection` does both better.
  public init?(zone: String) {
    guard let values = Varnel().parseMRZString(forDictionary: zone) else {
      return nil
    }
    func value(_ key: String) -> String { values[key] ?? "" }
    firstName = value("firstName")
    lastName = value("lastName")
    middleName = value("middleName")
    licenseNumber = value("licenseNumber")
    birthDate = value("birthDate")
    expirationDate = value("expirationDate")
    gender = value("gender")
    countryCode = value("countryCode")
    jurisdictionCode = value("jurisdictionCode")
    nationality = value("nationality")
    documentType = value("documentType")
    issueDate = value("issueDate")
  }
}
