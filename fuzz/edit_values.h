// Selects and strings under edit. Each has a plain counterpart, and the two are compared after every step.
#ifndef STEPRT_FUZZ_EDIT_VALUES_H
#define STEPRT_FUZZ_EDIT_VALUES_H

#include <gtest/gtest.h>
#include <steprt/select.h>
#include <steprt/text.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "bytes.h"

namespace fuzz {

class Selects {
 public:
  void Step(Bytes& bytes, STEPheader* object) {
    Held& held = held_[bytes.Below(3)];
    Held& other = held_[bytes.Below(3)];
    const int action = bytes.Below(4);
    if (action == 0) {
      STEPselect copy(held.select);  // with a text of its own
      Compare(held, copy);
    } else if (action > 1) {
      Set(bytes, object, held);
    } else if (&held != &other) {
      Assign(held, other);
    }
    for (Held& each : held_) Compare(each, each.select);
  }

 private:
  // The fields of other kinds keep what they must read as.
  struct Held {
    STEPselect select;
    STEPselect::SelType kind = STEPselect::SEL_NONE;
    int integer = 0;
    double real = 0.0;
    std::string text;
    STEPheader* object = nullptr;
  };

  static void Expect(Held& held, STEPselect::SelType kind, int integer, double real, const std::string& text,
                     STEPheader* object) {
    held.kind = kind;
    held.integer = integer;
    held.real = real;
    held.text = text;
    held.object = object;
  }

  static void Set(Bytes& bytes, STEPheader* object, Held& held) {
    delete[] held.select.GetCharPtr();
    const int kind = bytes.Below(5);
    if (kind == 0) {
      Expect(held, STEPselect::SEL_INT, bytes.Any<int>(), 0.0, "", nullptr);
      held.select.SetInt(held.integer);
    } else if (kind == 1) {
      Expect(held, STEPselect::SEL_REAL, 0, bytes.Any<double>(), "", nullptr);
      held.select.SetReal(held.real);
    } else if (kind == 2) {
      Expect(held, STEPselect::SEL_TEXT, 0, 0.0, bytes.Text(), nullptr);
      held.select.SetCharPtr(std::strcpy(new char[held.text.size() + 1], held.text.c_str()));
    } else {
      Expect(held, STEPselect::SEL_OBJ, 0, 0.0, "", object);
      held.select.SetSTEPobj(kind == 3 ? object : nullptr);
      if (kind == 4) *held.select.GetSTEPObjAddr() = object;
    }
  }

  // The assignment copies the pointer, so both would release the text: the source forgets it.
  static void Assign(Held& target, Held& source) {
    delete[] target.select.GetCharPtr();
    target.select = source.select;
    Expect(target, source.kind, source.integer, source.real, source.text, source.object);
    source.select.SetInt(0);
    Expect(source, STEPselect::SEL_INT, 0, 0.0, "", nullptr);
  }

  static void Compare(const Held& expected, STEPselect& select) {
    EXPECT_EQ(select.Type(), expected.kind);
    EXPECT_EQ(select.GetInt(), expected.integer);
    const double real = select.GetReal();
    EXPECT_EQ(std::memcmp(&real, &expected.real, sizeof real), 0);
    EXPECT_EQ(select.GetSTEPobj(), expected.object);
    const char* text = select.GetCharPtr();
    EXPECT_EQ(text != nullptr, expected.kind == STEPselect::SEL_TEXT);
    EXPECT_EQ(text ? text : "", expected.text);
  }

  Held held_[3];
};

class Strings {
 public:
  void Step(Bytes& bytes) {
    Pair& pair = pairs_[bytes.Below(3)];
    Pair& other = pairs_[bytes.Below(3)];
    Edit(bytes, pair, other);
    EXPECT_EQ(pair.text.Compare(other.expected.c_str()), SignOf(pair.expected.compare(other.expected)));
    const int folded = Mapped(pair.expected, 'A', 'a').compare(Mapped(other.expected, 'A', 'a'));
    EXPECT_EQ(SignOf(pair.text.CompareNoCase(other.expected.c_str())), SignOf(folded));
    for (Pair& each : pairs_) Compare(each);
  }

 private:
  class Open : public STEPstring {
   public:
    using STEPstring::STEPstring;
    using STEPstring::operator=;
    using STEPstring::capacity;
    using STEPstring::Empty;
  };
  struct Pair {
    Open text;
    std::string expected;
    int capacity = 0;  // that a buffer must keep
  };

  static int SignOf(int number) { return (number > 0) - (number < 0); }

  // With the 26 letters from `from` on replaced by those from `to` on.
  static std::string Mapped(std::string text, char from, char to) {
    for (char& c : text) c = c >= from && c < from + 26 ? static_cast<char>(c - from + to) : c;
    return text;
  }

  static void Edit(Bytes& bytes, Pair& pair, Pair& other) {
    const int action = bytes.Below(6);
    if (action == 0) pair.text = (pair.expected = bytes.Text()).c_str();
    if (action == 1) {
      pair.text = other.text;  // itself, at times
      pair.expected = other.expected;
    } else if (action == 2) {  // its own end
      const std::size_t start = std::min<std::size_t>(bytes.Byte(), pair.expected.size());
      pair.text = static_cast<const char*>(pair.text) + start;
      pair.expected.erase(0, start);
    } else if (action == 3 || action == 4) {
      Pair copy{Open(pair.text), pair.expected};
      Compare(copy);
      copy.text.MakeLower();
      EXPECT_STREQ(copy.text, Mapped(pair.expected, 'A', 'a').c_str());
      copy.text.MakeUpper();
      EXPECT_STREQ(copy.text, Mapped(pair.expected, 'a', 'A').c_str());
    } else if (action == 5) {
      pair.text.Empty();
      pair.expected.clear();
      pair.capacity = 0;
    }
  }

  static void Compare(Pair& pair) {
    EXPECT_STREQ(pair.text, pair.expected.c_str());
    EXPECT_EQ(pair.text.GetLength(), static_cast<int>(pair.expected.size()));
    EXPECT_EQ(pair.text.IsEmpty(), pair.expected.empty());
    EXPECT_EQ(pair.text.IsBlank(), pair.expected.find_first_not_of(' ') == std::string::npos);
    EXPECT_GE(pair.text.capacity, std::max(pair.capacity, pair.text.GetLength()));
    pair.capacity = pair.text.capacity;
  }

  Pair pairs_[3];
};

}  // namespace fuzz

#endif
