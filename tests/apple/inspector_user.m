// An app that inspects a document with VarnelDocuments.framework.
#import <VarnelDocuments/VarnelDocuments.h>

NSDictionary *_Nullable inspect_zone(NSString *_Nonnull zone);

NSDictionary *_Nullable inspect_zone(NSString *_Nonnull zone) {
  VarnelInspector *inspector = [VarnelInspector new];
  return [inspector inspect:zone date:nil repair:VarnelRepairColumns];
}
