// Limits against documents of a few bytes that cost Expat much. Each attack below makes it do the same work again and
// again, so that the cost grows with the square of the document's size.
//
//   attack                                       what Expat does again
//   -------------------------------------------  -----------------------------------------------------------------
//   tags in entities                             makes the element, for a reference of a few bytes
//   many attributes declared of an element       walks all of them for each of its tags, and for each token in a tag
//   defaults of attributes                       adds each to each tag of the element
//   long names of attributes with defaults       hashes one in a namespace, with its address, for each tag; the
//                                                library walks the others
//   long addresses of namespaces                 copies the address into each name
//   many bindings of namespaces                  walks all open elements when a binding's buffer grows
//   entities inside of entities                  recurses, see entity_nesting.h
//   a long address for many attributes of a tag  copies it for each of them: memory.h limits that, since Expat calls
//                                                nobody until the whole tag is done
//
// Each attack has a budget of instructions, which grows with the document. So a document of any length is read while
// its cost for a byte stays within reason, and what grows faster is refused.
#ifndef STEPRT_PLATFORM_EXPAT_LIMITS_H
#define STEPRT_PLATFORM_EXPAT_LIMITS_H

#include <expat.h>

#include <cstdint>
#include <string_view>

#include "platform/expat/entity_nesting.h"
#include "platform/expat/name_table.h"

namespace steprt {

class DocumentLimits {
 public:
  // The parser tells how much of the document has been read. The limits must not outlive what it has declared.
  void Start(XML_Parser parser) { parser_ = parser; }

  // One for each of Expat's callbacks. Each returns null, or the fault for which the document must be refused.
  const char* DeclareEntity(const XML_Char* name, std::string_view text, bool isParameter);
  const char* DeclareAttribute(std::string_view element, std::string_view type, bool hasDefault);
  const char* BindNamespace(const XML_Char* address);
  const char* StartElement(const XML_Char* name, std::string_view localName, const XML_Char** attributes);
  void EndElement() { --depth_; }

 private:
  enum Attack { kTags, kDeclared, kTokens, kDefaults, kLongNames, kAddresses, kBindings, kAttacks };

  struct Element {
    std::string_view name;
    std::int64_t declared;  // attributes of the element with this name, prefix and all
    std::int64_t most;      // the same for all elements with this local part: the greatest of their counts
  };

  // Takes the cost from the attack's budget. Returns null, or the fault if the budget is used up.
  const char* Spend(Attack attack, std::int64_t instructions) {
    spent_[attack] += instructions;
    return spent_[attack] <= allowed_[attack] ? nullptr : CheckBudget(attack, spent_[attack]);
  }
  const char* CheckBudget(Attack attack, std::int64_t spent);
  const char* WalkDeclared(std::string_view localName);
  const char* WalkAttributes(const XML_Char** attributes);
  const char* NameInNamespace(const XML_Char* name, std::string_view localName);

  XML_Parser parser_ = nullptr;
  std::int64_t spent_[kAttacks] = {};
  std::int64_t allowed_[kAttacks] = {};  // as of the last look at the position

  std::int64_t depth_ = 0;              // of the element at hand
  const XML_Char* lastName_ = nullptr;  // the newest name in a namespace; it is in the buffer of its binding
  bool expandsNames_ = false;           // whether a tag may have attributes that cost more than their bytes
  std::int64_t mostDeclared_ = 0;       // attributes of one element
  std::int64_t tokens_ = 0;             // attributes declared as something else than CDATA
  NameTable<Element> elements_;         // with attributes declared
  EntityNesting entities_;
};

}  // namespace steprt

#endif
