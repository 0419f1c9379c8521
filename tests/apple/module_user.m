// A part of an app that imports the framework as a module.
@import Foundation;
@import Varnel;

NSDictionary<NSString *, NSString *> *read_zone(NSString *text);
NSDictionary<NSString *, NSString *> *read_zone(NSString *text) {
  Varnel *varnel = [Varnel new];
  NSDictionary<NSString *, NSString *> *document = [varnel parseMRZStringForDictionary:text];
  [varnel release];
  return document != nil ? document : [text parseMRZStringForDict];
}

// The C interface comes along.
int has_family_name(PARSE_RESULT *result);
int has_family_name(PARSE_RESULT *result) {
  return VarnelVersionNumber >= 1.0 && utils_is_valid_field(result, FIELD_FAMILY_NAME) == ERR_OK;
}
