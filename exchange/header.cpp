#include "header.h"

#include <steprt/encoding.h>

#include <string_view>

namespace exchange {

namespace {

constexpr std::string_view kNames[] = {"FILE_DESCRIPTION", "FILE_NAME", "FILE_SCHEMA"};
constexpr std::size_t kCounts[] = {2, 7, 1};

// Two quotes stand for one; directives become UTF-8.
std::string Decoded(std::string_view text) {
  std::string single;
  for (std::size_t i = 0; i < text.size(); ++i) {
    single += text[i];
    if (text[i] == '\'') ++i;
  }
  return steprt::DecodeText(single);
}

std::string TextOf(const Record& record, std::size_t at) {
  const std::string_view bytes = record.bytes.substr(record.tokens[at].Offset() + 1);
  std::size_t end = 0;
  while (bytes[end] != '\'' || bytes[end + 1] == '\'') end += bytes[end] == '\'' ? 2 : 1;
  return Decoded(bytes.substr(0, end));
}

// Where each attribute starts.
std::vector<std::size_t> Attributes(const Record& record) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 2; i + 1 < record.tokens.size(); i = AfterValue(record.tokens, i)) starts.push_back(i);
  return starts;
}

}  // namespace

std::string SchemaName(const std::string& schema) {
  const std::size_t end = schema.find_first_of(" {\t\r\n");
  return schema.substr(0, end);
}

void HeaderReader::Take(const Record& record) {
  const std::string_view keyword = record.Keyword();
  for (int i = 0; i < kKnown; ++i) {
    if (keyword != kNames[i]) continue;
    if (i != seen_) {
      reports_.Add(Code::kHeader, record.offset,
                   [] { return "expected FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA, in this order and each once"; });
    }
    seen_ = i + 1;
    if (i == kSchema) schemaOffset_ = record.offset;
    return TakeKnown(static_cast<Known>(i), record);
  }
}

void HeaderReader::TakeKnown(Known known, const Record& record) {
  const std::vector<std::size_t> at = Attributes(record);
  if (at.size() != kCounts[known]) {
    return reports_.Add(Code::kHeader, record.offset, [&] {
      return "expected " + std::to_string(kCounts[known]) +
             (kCounts[known] == 1 ? " attribute in " : " attributes in ") + std::string(kNames[known]) + ", found " +
             std::to_string(at.size());
    });
  }
  switch (known) {
    case kDescription:
      TakeTexts(record, at[0], header_.description);
      return TakeText(record, at[1], header_.implementationLevel);
    case kName:
      TakeText(record, at[0], header_.name);
      TakeText(record, at[1], header_.timeStamp);
      TakeTexts(record, at[2], header_.author);
      TakeTexts(record, at[3], header_.organization);
      TakeText(record, at[4], header_.preprocessorVersion);
      TakeText(record, at[5], header_.originatingSystem);
      return TakeText(record, at[6], header_.authorization);
    default:
      return TakeTexts(record, at[0], header_.schemas);
  }
}

void HeaderReader::Expected(const Record& record, std::size_t at, const char* what) {
  const bool omitted = record.tokens[at].Is(TokenKind::kOmitted);
  const auto message = [&] {
    return std::string("expected ") + what + ", found " + std::string(KindName(record.tokens[at].Kind()));
  };
  reports_.Add(omitted ? Code::kHeaderOmitted : Code::kHeader, record.tokens[at].Offset(), message);
}

void HeaderReader::TakeText(const Record& record, std::size_t at, std::string& text) {
  if (!record.tokens[at].Is(TokenKind::kText)) return Expected(record, at, "a text");
  text = TextOf(record, at);
}

void HeaderReader::TakeTexts(const Record& record, std::size_t at, std::vector<std::string>& texts) {
  if (!record.tokens[at].Is(TokenKind::kOpen)) return Expected(record, at, "a list of texts");
  const std::size_t end = AfterValue(record.tokens, at) - 1;
  if (end == at + 1) return Expected(record, end, "a text");
  for (std::size_t i = at + 1; i < end; i = AfterValue(record.tokens, i)) {
    texts.emplace_back();
    TakeText(record, i, texts.back());
  }
}

void HeaderReader::Finish(std::size_t offset) {
  if (seen_ == kKnown) return;
  reports_.Add(Code::kHeader, offset, [&] { return "expected " + std::string(kNames[seen_]) + " in the header"; });
}

}  // namespace exchange
