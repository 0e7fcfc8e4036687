// Splits a source into tokens.
#ifndef STEPRT_EXPRESS_LEXER_H
#define STEPRT_EXPRESS_LEXER_H

#include <vector>

#include "diagnostic.h"
#include "source.h"
#include "token.h"

namespace express {

// The text must be shorter than 4 GiB. The last token is always kEnd. What is no token is reported and passed over; an
// unfinished literal ends with its line.
std::vector<Token> Tokenise(const Source& source, Diagnostics& diagnostics);

}  // namespace express

#endif
