#include "raw_records.h"

#include <steprt/standard.h>
#include <steprt/write.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

namespace steprt_tools {
namespace {

RawRecords* bound = nullptr;

// The real as ISO 10303-21 spells it (clause 6.4.2): with a digit before its point, and a capital E. The reader takes
// other spellings, too. Returns the empty text for what is no decimal number.
std::string StrictReal(std::string_view token) {
  const auto take = [&](std::string_view any, std::size_t most) {
    const std::size_t count = std::min({token.find_first_not_of(any), token.size(), most});
    const std::string_view taken = token.substr(0, count);
    token.remove_prefix(count);
    return std::string(taken);
  };
  constexpr std::string_view kDigits = "0123456789";
  const std::string sign = take("+-", 1);
  const std::string whole = take(kDigits, token.size());
  const bool hasPoint = !take(".", 1).empty();
  const std::string fraction = hasPoint ? take(kDigits, token.size()) : "";
  if (whole.empty() && fraction.empty()) return "";
  std::string strict = sign + (whole.empty() ? "0" : whole) + "." + fraction;
  if (!take("Ee", 1).empty()) {
    strict += "E" + take("+-", 1);
    const std::string power = take(kDigits, token.size());
    if (power.empty()) return "";
    strict += power;
  }
  return token.empty() ? strict : "";
}

// One that no double can hold is the nearest that is one.
double ToReal(std::string_view token) {
  if (!token.empty() && token.front() == '+') token.remove_prefix(1);
  double real = 0;
  const auto read = std::from_chars(token.data(), token.data() + token.size(), real);
  if (read.ec != std::errc::result_out_of_range || token.find_first_of("Ee") == std::string_view::npos) return real;
  if (token.find('-', 1) != std::string_view::npos) return 0;
  return token.front() == '-' ? -std::numeric_limits<double>::max() : std::numeric_limits<double>::max();
}

}  // namespace

RawRecord::RawRecord(STEPtransfer* t) : STEPheader(nullptr), name_(rSTEPinstance(t)), keyword_(rSTEPkeyword(t)) {
  type = 0;
  ReadValues(t);
}

void RawRecord::Add(STEPitem kind, const char* text) {
  tokens_ += static_cast<char>('A' + kind);
  tokens_ += text;
  tokens_ += '\0';
}

// The library bounds the depth.
void RawRecord::ReadValues(STEPtransfer* t) {
  for (;;) {
    const STEPitem kind = rSTEPkind(t, nullptr);
    if (kind == STEP_END) return;
    if (kind != STEP_LIST && kind != STEP_TYPED) {
      Add(kind, rSTEPtoken(t, nullptr));
      continue;
    }
    const char* const keyword = rSTEPopen(t, nullptr);
    if (!keyword) continue;
    Add(kind, keyword);
    ReadValues(t);
    rSTEPclose(t);
    Add(STEP_END, "");
  }
}

RawRecords::RawRecords() : empty_("", {}) { bound = this; }

RawRecords::~RawRecords() { bound = nullptr; }

const APPentity* RawRecords::Row() {
  static constexpr APPentity row = {"", [](STEPtransfer* t) -> STEPheader* { return new RawRecord(t); }, nullptr, 0,
                                    nullptr};
  return &row;
}

void RawRecords::Enter(STEPheader* object) {
  auto* const record = static_cast<RawRecord*>(object);
  const int next = static_cast<int>(types_.size());
  record->type = types_.emplace(record->Keyword(), next).first->second;
}

APPobject0* RawRecords::WriteDescriptor(STEPmodel& model, const std::string& schema, bool isNative) {
  isNative_ = isNative;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
    if (object->type != STEPcomplex::kType) {
      Enter(object);
      instances_.emplace(static_cast<RawRecord*>(object)->Name(), object);
      continue;
    }
    ++lost_.complex;
    for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->NextHead()) Enter(part);
  }
  std::vector<APPentity> rows;
  for (const auto& [keyword, type] : types_) rows.push_back({keyword.c_str(), nullptr, Write, type, nullptr});
  table_ = std::make_unique<Table>(schema, rows);
  return table_->Descriptor();
}

void RawRecords::Write(STEPtransfer* t, STEPheader* object) {
  const std::string& tokens = static_cast<RawRecord*>(object)->Tokens();
  const char* token = tokens.data();
  const char* const end = token + tokens.size();
  while (token != end) {
    const char* const text = token + 1;
    bound->WriteToken(t, static_cast<STEPitem>(*token - 'A'), text);
    token = text + std::strlen(text) + 1;
  }
}

void RawRecords::WriteToken(STEPtransfer* t, STEPitem kind, const char* text) {
  switch (kind) {
    case STEP_END:
      return wSTEPclose(t);
    case STEP_LIST:
      return wSTEPopen(t, nullptr, nullptr);
    case STEP_TYPED:
      return wSTEPopen(t, nullptr, text);
    case STEP_INT:
      return WriteInteger(t, text);
    case STEP_REAL:
      return WriteReal(t, text);
    case STEP_TEXT:
      lost_.AddText(text);
      return wSTEPtext(t, nullptr, text);
    case STEP_REF:
      return WriteReference(t, text);
    case STEP_ENUM:
    case STEP_BINARY:
      return WriteCapitals(t, text);
    default:
      return wSTEPtoken(t, nullptr, text);
  }
}

// A strict reader wants them, and no reader tells the difference.
void RawRecords::WriteCapitals(STEPtransfer* t, const char* token) {
  std::string capitals = token;
  for (char& c : capitals) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  wSTEPtoken(t, nullptr, capitals.c_str());
}

void RawRecords::WriteInteger(STEPtransfer* t, const char* token) {
  if (!isNative_) return wSTEPtoken(t, nullptr, token);
  int integer = 0;
  const auto [last, failure] = std::from_chars(*token == '+' ? token + 1 : token, token + std::strlen(token), integer);
  if (failure != std::errc()) {
    ++lost_.integers;
    integer = *token == '-' ? INT_MIN : INT_MAX;
  }
  wSTEPint(t, nullptr, integer);
}

void RawRecords::WriteReal(STEPtransfer* t, const char* token) {
  const double real = ToReal(token);
  lost_.AddReal(real);
  const std::string strict = isNative_ ? "" : StrictReal(token);
  if (!strict.empty()) return wSTEPtoken(t, nullptr, strict.c_str());
  wSTEPreal(t, nullptr, real);
}

void RawRecords::WriteReference(STEPtransfer* t, const char* token) {
  if (!isNative_) return wSTEPtoken(t, nullptr, token);
  std::uint64_t name = 0;
  std::from_chars(token + 1, token + std::strlen(token), name);
  const auto found = instances_.find(name);
  if (found == instances_.end()) ++lost_.references;
  xwSTEPref(t, nullptr, found == instances_.end() ? nullptr : found->second);
}

}  // namespace steprt_tools
