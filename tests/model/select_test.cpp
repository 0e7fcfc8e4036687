// Selects: kinds never convert, and who owns a text.
#include "steprt/select.h"

#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

char* HeapText(const std::string& text) {
  char* copy = new char[text.size() + 1];
  return Copy(copy, text.c_str(), static_cast<int>(text.size()));
}

TEST(Select, ATextGoesWithTheSelectUnlessAnotherKindIsSet) {
  const long before = LiveBlocks();
  char* kept = HeapText("kept");
  {
    STEPselect select;
    select.SetCharPtr(HeapText("gone"));
    STEPselect other;
    other.SetCharPtr(kept);
    other.SetInt(1);
    STEPselect empty;
    empty.SetCharPtr(nullptr);
  }
  EXPECT_STREQ(kept, "kept");
  delete[] kept;
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Select, ACopyDuplicatesATextAndAnAssignmentDoesNot) {
  STEPselect source;
  source.SetCharPtr(HeapText("text"));
  const STEPselect constant(source);
  STEPselect copy(constant);
  EXPECT_STREQ(copy.GetCharPtr(), "text");
  EXPECT_NE(copy.GetCharPtr(), source.GetCharPtr());
  STEPselect target;
  EXPECT_EQ(&(target = source), &target);
  EXPECT_EQ(target.GetCharPtr(), source.GetCharPtr());
  target.SetInt(0);
  const STEPselect& same = target;
  target = same;
  STEPselect real;
  real.SetReal(0.5);
  EXPECT_EQ(STEPselect(real).GetReal(), 0.5);
  const FailingNew failing(1);
  EXPECT_EQ(STEPselect(source).Type(), STEPselect::SEL_NONE);
}

}  // namespace
