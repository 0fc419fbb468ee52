#pragma once

#include <cstddef>
#include <string>

#include "jet/error.h"

// DAO's numbers for what the dialect refuses.
namespace jetsql {

constexpr int kTableExists = 3010;
constexpr int kUnknownParameter = 3061;
constexpr int kDuplicateAlias = 3062;
constexpr int kDuplicateDestination = 3063;
constexpr int kNoInputTable = 3067;
constexpr int kNotUpdatable = 3073;
constexpr int kExpressionSyntax = 3075;
constexpr int kTableNotFound = 3078;
constexpr int kAmbiguousColumn = 3079;
constexpr int kSameSourceName = 3081;
constexpr int kUndefinedFunction = 3085;
constexpr int kOrderByNotSelected = 3093;
constexpr int kNestedAggregate = 3095;
constexpr int kAggregateInWhere = 3096;
constexpr int kCircularReference = 3102;
constexpr int kNotGrouped = 3122;
constexpr int kGroupedStar = 3123;
constexpr int kBadName = 3125;
constexpr int kBadBracketing = 3126;
constexpr int kUnknownTarget = 3127;
constexpr int kDeleteTableMissing = 3128;
constexpr int kNoVerb = 3129;
constexpr int kFromSyntax = 3131;
constexpr int kInsertSyntax = 3134;
constexpr int kJoinSyntax = 3135;
constexpr int kOrderBySyntax = 3138;
constexpr int kSelectSyntax = 3141;
constexpr int kTrailingCharacters = 3142;
constexpr int kUpdateSyntax = 3144;
constexpr int kTextTooLong = 3163;
constexpr int kTooManyFields = 3190;
constexpr int kDuplicateField = 3191;
constexpr int kOutputTableNotFound = 3192;
constexpr int kColumnIndexed = 3280;
constexpr int kIndexExists = 3284;
constexpr int kCreateTableSyntax = 3290;
constexpr int kCreateIndexSyntax = 3291;
constexpr int kFieldDefinitionSyntax = 3292;
constexpr int kAlterTableSyntax = 3293;
constexpr int kDropSyntax = 3295;
constexpr int kJoinNotSupported = 3296;
constexpr int kSubqueryColumns = 3306;
constexpr int kUnionNotSupported = 3319;
constexpr int kValueCount = 3346;
constexpr int kNumericOverflow = 3349;
constexpr int kSubqueryRows = 3354;
constexpr int kTooComplex = 3360;
constexpr int kIndexNotFound = 3372;
constexpr int kNoSuchTable = 3376;
constexpr int kFieldExists = 3380;
constexpr int kNoSuchField = 3381;
constexpr int kBadIndexField = 3409;
constexpr int kConversion = 3421;
constexpr int kCriteriaMismatch = 3464;
constexpr int kSameSourceAndTarget = 3610;
constexpr int kJoinMismatch = 3615;

// Fields of a table, or of the result of a SELECT, at most; more are kTooManyFields.
constexpr std::size_t kMostFields = 255;

[[noreturn]] inline void Fail(int number, const std::string& text) {
    throw jet::Error(number, text);
}

}  // namespace jetsql
