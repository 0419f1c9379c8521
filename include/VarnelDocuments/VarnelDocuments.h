/**
 * @file VarnelDocuments.h
 * @brief Varnel Documents for Objective-C and Swift: inspecting a document into a dictionary.
 */
#ifndef VARNEL_DOCUMENTS_FOUNDATION_H
#define VARNEL_DOCUMENTS_FOUNDATION_H

#import <Foundation/Foundation.h>

/* To the pedantic, nullability is an extension, and so is a class without instance variables. */
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"

/* Nullability, generics and visibility, for the compilers that know them. */
#ifdef __clang__
#define VARNEL_INSPECTION_NULLABLE _Nullable
#define VARNEL_INSPECTION_DICTIONARY NSDictionary<NSString *, id>
#define VARNEL_INSPECTION_CLASS __attribute__((visibility("default")))
#else
#define VARNEL_INSPECTION_NULLABLE
#define VARNEL_INSPECTION_DICTIONARY NSDictionary
#define VARNEL_INSPECTION_CLASS
#endif

/** How far characters may be changed. */
typedef NS_ENUM(NSInteger, VarnelRepair) {
  VarnelRepairOff = 0,     /**< not at all */
  VarnelRepairColumns = 1, /**< where a column's kind or a filler leaves one way */
  VarnelRepairDigits = 2   /**< as columns, and numbers where one look-alike alone makes the digit hold */
};

/**
 * Finds the zone of a travel document in a text and says of every field whether it is right.
 *
 * The class holds no state: one instance serves any number of threads at once, and nothing is gained by
 * keeping it.
 */
VARNEL_INSPECTION_CLASS
@interface VarnelInspector : NSObject

/**
 * Inspects a text against today's date (UTC) without changing a character.
 *
 * @param text the text, up to 64 KiB of UTF-8; nil gives nil.
 * @return     as inspect:date:repair: answers.
 */
- (VARNEL_INSPECTION_DICTIONARY *VARNEL_INSPECTION_NULLABLE)inspect:
    (NSString *VARNEL_INSPECTION_NULLABLE)text;

/**
 * Inspects a text.
 *
 * @param text   the text, up to 64 KiB of UTF-8; nil gives nil. A lone surrogate counts as noise.
 * @param date   the reference date, of which the day in UTC counts; nil stands for now.
 * @param repair how far characters may be changed; any other value gives nil.
 * @return       an autoreleased dictionary in the shape of docs/inspection.schema.json: strings, numbers,
 *               arrays, dictionaries, and NSNull for null. A text without a zone has the verdict "refused".
 * nil for a text that is too long or, having a lone surrogate, has no UTF-8 form.
 */
- (VARNEL_INSPECTION_DICTIONARY *VARNEL_INSPECTION_NULLABLE)inspect:(NSString *VARNEL_INSPECTION_NULLABLE)text
                                                               date:(NSDate *VARNEL_INSPECTION_NULLABLE)date
                                                             repair:(VarnelRepair)repair;

@end

#pragma GCC diagnostic pop

#endif
