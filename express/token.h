// The tokens of ISO 10303-11. Remarks and blanks are between tokens and are not tokens.
#ifndef STEPRT_EXPRESS_TOKEN_H
#define STEPRT_EXPRESS_TOKEN_H

#include <cstdint>
#include <string_view>

namespace express {

// The order matters: the functions below ask for ranges.
enum class TokenKind : std::uint8_t {
  kEnd,  // of the source
  kIdentifier,
  kInteger,
  kReal,
  kText,         // 'it''s'
  kEncodedText,  // "00000041"
  kBinary,       // %0110
  // Symbols
  kDot,
  kComma,
  kSemicolon,
  kColon,
  kStar,
  kPlus,
  kMinus,
  kEqual,
  kBackslash,
  kSlash,
  kLess,
  kGreater,
  kLeftBracket,
  kRightBracket,
  kLeftBrace,
  kRightBrace,
  kBar,
  kLeftParen,
  kRightParen,
  kLessEqual,
  kNotEqual,
  kGreaterEqual,
  kLessStar,  // <*
  kAssign,    // :=
  kBarBar,
  kStarStar,
  kInstanceEqual,     // :=:
  kInstanceNotEqual,  // :<>:
  kQuestion,
  // Words that an expression may hold
  kAnd,
  kAndOr,
  kDiv,
  kIn,
  kLike,
  kMod,
  kNot,
  kOr,
  kQuery,
  kSelf,
  kXor,
  // Other reserved words
  kAbstract,
  kAggregate,
  kAlias,
  kArray,
  kAs,
  kBag,
  kBegin,
  kBinaryType,
  kBoolean,
  kBy,
  kCase,
  kConstant,
  kDerive,
  kElse,
  kEndBlock,  // END
  kEndAlias,
  kEndCase,
  kEndConstant,
  kEndEntity,
  kEndFunction,
  kEndIf,
  kEndLocal,
  kEndProcedure,
  kEndRepeat,
  kEndRule,
  kEndSchema,
  kEndType,
  kEntity,
  kEnumeration,
  kEscape,
  kFixed,
  kFor,
  kFrom,
  kFunction,
  kGeneric,
  kIf,
  kIntegerType,
  kInverse,
  kList,
  kLocal,
  kLogical,
  kNumber,
  kOf,
  kOneOf,
  kOptional,
  kOtherwise,
  kProcedure,
  kRealType,
  kReference,
  kRepeat,
  kReturn,
  kRule,
  kSchema,
  kSelect,
  kSet,
  kSkip,
  kString,
  kSubtype,
  kSupertype,
  kThen,
  kTo,
  kType,
  kUnique,
  kUntil,
  kUse,
  kVar,
  kWhere,
  kWhile,
  // Words of the edition of 2004. They are names wherever the grammar does not ask for the word, because a schema of
  // the edition of 1994 may use them as names.
  kBasedOn,
  kEndSubtypeConstraint,
  kExtensible,
  kGenericEntity,
  kRenamed,
  kSubtypeConstraint,
  kTotalOver,
  kWith,
};

struct Token {
  std::uint32_t offset = 0;
  std::uint32_t length = 0;
  TokenKind kind = TokenKind::kEnd;
};

// The words and symbols, spelled as a diagnostic prints them: `';'`, `END_TYPE`, `a name`.
std::string_view Describe(TokenKind kind);

// The kind of a word, found case-insensitively; kIdentifier if it is not reserved. Names of built-in functions,
// procedures and constants are identifiers here.
TokenKind WordKind(std::string_view word);

constexpr bool CanBeName(TokenKind kind) { return kind == TokenKind::kIdentifier || kind >= TokenKind::kBasedOn; }
constexpr bool CanBeInExpression(TokenKind kind) {
  return kind != TokenKind::kEnd && kind != TokenKind::kSemicolon && kind != TokenKind::kAssign &&
         (kind <= TokenKind::kXor || CanBeName(kind));
}

}  // namespace express

#endif
