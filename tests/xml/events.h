// The content handler, driven by events made by hand.
#ifndef STEPRT_TESTS_XML_EVENTS_H
#define STEPRT_TESTS_XML_EVENTS_H

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "read/transfer/read_store.h"
#include "read/transfer/transfer.h"
#include "support/proj_schema.h"
#include "xml/parser.h"

namespace steprt_test {

using AttributePairs = std::vector<std::pair<std::u16string, std::u16string>>;

class FakeAttributes final : public steprt::SaxAttributes {
 public:
  explicit FakeAttributes(AttributePairs pairs) : pairs_(std::move(pairs)) {}
  int Length() override { return static_cast<int>(pairs_.size()); }
  std::u16string_view LocalName(int index, std::size_t limit) override { return Start(At(index).first, limit); }
  std::u16string_view Value(int index, std::size_t limit) override { return Start(At(index).second, limit); }

 private:
  static std::u16string_view Start(std::u16string_view text, std::size_t limit) { return text.substr(0, limit); }
  const AttributePairs::value_type& At(int index) const { return pairs_[static_cast<std::size_t>(index)]; }

  const AttributePairs pairs_;
};

struct XmlEvents {
  explicit XmlEvents(STEPerrorProc procedure = CollectReport)
      : transfer(steprt::NewReadTransfer("doc", procedure, ProjSchema(), true)) {
    parser.transfer = transfer.get();
    parser.schema = ProjSchema();
    parser.StartDocument();
  }
  ~XmlEvents() { TakeReports("doc"); }

  int Start(std::u16string_view name, AttributePairs attributes = {}) {
    FakeAttributes all(std::move(attributes));
    return parser.StartElement(name, all);
  }

  // "<PERSON #1>" starts an element with that number, "<Age>" one without attributes, "</>" ends one, and what stands
  // between them is text. None of them is refused.
  void Feed(const std::string& events) {
    for (std::size_t i = 0, end; i < events.size(); i = end) {
      if (events[i] != '<') {
        end = std::min(events.find('<', i), events.size());
        EXPECT_EQ(parser.Characters(std::u16string(&events[i], &events[end])), steprt::kSaxOk);
        continue;
      }
      end = events.find('>', i) + 1;
      const std::string tag = events.substr(i + 1, end - i - 2);
      const std::size_t blank = std::min(tag.find(' '), tag.size());
      const std::u16string wide(tag.begin(), tag.end());
      AttributePairs number;
      if (blank < tag.size()) number = {{u"rid", wide.substr(blank + 1)}};
      EXPECT_EQ(tag == "/" ? parser.EndElement() : Start(wide.substr(0, blank), number), steprt::kSaxOk) << events;
    }
  }

  // name=value of each element, "name" alone for one without character data.
  Texts Elements() const {
    Texts texts;
    for (const STEPelement* each = transfer->elements; each; each = each->next) {
      texts.push_back(each->value ? each->name + std::string("=") + each->value : each->name);
    }
    return texts;
  }

  ProjModel model;
  const steprt::TransferOwner transfer;
  steprt::XmlParser parser;
};

}  // namespace steprt_test

#endif
