// The attribute readers of the reference reader, and the references that they leave for the end.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_ATTRIBUTES_H
#define STEPRT_TESTS_WHOLE_REFERENCE_ATTRIBUTES_H

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "whole/reference/rows.h"
#include "whole/reference/tokens.h"

namespace steprt_test {

// An instance is known by its place in the model, counted from 1.
inline constexpr int kNoPlace = 0;
inline constexpr int kKeptPlace = -1;  // nothing was stored in a reference of PROBE

struct ReferenceItem {
  std::string text;
  bool isObject = false;
  int place = kNoPlace;
};

struct ReferenceValue {
  char kind = 0;
  bool isMade = false;                // of a list
  std::deque<ReferenceItem> items{};  // one, if it is no list; they stay where they are
};

// As Population prints it.
std::string ValueText(const ReferenceValue& value);

class ReferenceAttributes {
 public:
  ReferenceAttributes(ReferenceTokens& fileTokens, const ReferenceRows& schemaRows)
      : tokens_(fileTokens), rows_(schemaRows) {}

  // Fills in a value that stays where it is until Resolve has run.
  void Read(const Attribute& attribute, int type, ReferenceValue& value);
  void Resolve();

  int lastToken = kNoToken;
  std::map<int, int> table;  // places by number
  std::vector<int> types;    // by place - 1

 private:
  struct Fixup {
    int number;
    int expected;
    ReferenceItem* item;
  };

  int NextAttribute();
  void Skip(int token);
  void Store(ReferenceItem& item, int number, int expected);
  bool IsSubtype(int expected, int type) const;

  std::string Text();
  std::string Integer();
  std::string Real();
  int Keyword(const std::vector<std::string>& names, const std::string& kind);
  void Select(ReferenceValue& value);
  void Reference(const Attribute& attribute, ReferenceItem& item);
  void List(const Attribute& attribute, ReferenceValue& value);
  bool TakeItem(const Attribute& attribute, int token, std::deque<ReferenceItem>& items);
  bool TakeReference(const Attribute& attribute, int token, std::deque<ReferenceItem>& items);
  bool TakeEnumerator(int token, std::deque<ReferenceItem>& items);

  ReferenceTokens& tokens_;
  const ReferenceRows& rows_;
  std::deque<Fixup> fixups_;  // newest first
};

}  // namespace steprt_test

#endif
