// One statement of a file, as a flat list of tokens.
#ifndef STEPRT_EXCHANGE_RECORD_H
#define STEPRT_EXCHANGE_RECORD_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "token.h"

namespace exchange {

// The tokens are keywords and brackets, and all values. Commas are left out, and so is the outer pair of brackets of a
// complex instance:
//
//   #1=A(5,(6,7),B('x'));    A ( 5 ( 6 7 ) B ( 'x' ) )
//   #2=(A(5)B());            A ( 5 ) B ( )
//
// Brackets are in pairs, and each keyword is followed by a bracket, if the record is sound.
struct Record {
  std::string_view bytes;  // of the whole file
  std::vector<Token> tokens;
  std::size_t offset = 0;  // where the statement starts
  bool hasName = false;
  bool complex = false;
  bool sound = false;      // it has no fault of the grammar
  std::uint64_t name = 0;  // #name

  // The keyword of a simple instance or of a header entity; empty if there is none.
  std::string_view Keyword() const { return tokens.empty() ? std::string_view() : Spelling(bytes, tokens.front()); }
};

// The index after the value that starts at tokens[i]: a scalar, a list, or a keyword with its brackets.
inline std::size_t AfterValue(const std::vector<Token>& tokens, std::size_t i) {
  for (std::size_t depth = 0;; ++i) {
    const TokenKind kind = tokens[i].Kind();
    if (kind == TokenKind::kOpen) ++depth;
    if (kind == TokenKind::kClose) --depth;
    const bool keyword = kind == TokenKind::kKeyword || kind == TokenKind::kUserKeyword;
    if (depth == 0 && !keyword) return i + 1;
  }
}

// Receives what a file holds, in its order. The record is valid during the call.
class Sink {
 public:
  virtual ~Sink() = default;
  virtual void OnHeader(const Record& record) = 0;  // sound only
  // Each record of a DATA section, sound or not. Of an unsound one only the name is reliable, if it has one.
  virtual void OnRecord(const Record& record) = 0;
  // A statement of another section of edition 3, with the references in it. In REFERENCE its name is that of an
  // instance of another file.
  virtual void OnOther(const Record& record) = 0;
  virtual void OnProgress(std::size_t offset) = 0;  // about once for each MiB
};

}  // namespace exchange

#endif
