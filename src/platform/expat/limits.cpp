#include "platform/expat/limits.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "platform/expat/names.h"

namespace steprt {
namespace {

// Instructions of Expat 2.5.0 for one step of each kind, counted by callgrind on documents of 100,000 bytes made for
// the purpose. A plain tag costs 1,068, or 267 for a byte of <a/>.
constexpr std::int64_t kForTag = 1000;             // out of an entity 840
constexpr std::int64_t kForDeclaration = 2000;     // of an attribute, in an entity of the document type
constexpr std::int64_t kForDeclared = 12;          // attribute that a tag walks
constexpr std::int64_t kForOlderDeclared = 5;      // attribute that a declaration with a default walks
constexpr std::int64_t kForTokenWalk = 3;          // attribute that is walked for a token of a tag
constexpr std::int64_t kForDefault = 32;           // that a tag gets
constexpr std::int64_t kForNameInNamespace = 750;  // of an attribute
constexpr std::int64_t kForNameCharacter = 52;     // of such a name
constexpr std::int64_t kForAddressCharacter = 30;  // in front of such a name
constexpr std::int64_t kForBinding = 190;
constexpr std::int64_t kForBoundCharacter = 16;  // of the address
constexpr std::int64_t kForOpenElement = 5;      // that is walked when a binding's buffer grows
constexpr std::int64_t kCopiedForOne = 4;        // characters of an address in the name of an element
constexpr std::int64_t kWalkedForOne = 2;        // characters of a name by which the library looks for a namespace

// With fewer attributes than these for each element a tag costs about what its bytes cost.
constexpr std::int64_t kFewDeclared = 16;

// Expat makes the buffer of a binding this much larger than the address, so a shorter name never makes it grow.
constexpr std::size_t kSpare = 24;

constexpr char kOutOfMemory[] = "out of memory";
constexpr char kNestedTooDeep[] = "entities nested too deep";

// What a document may spend on each attack. Most get eight times what a plain tag costs. Two get less: their cost for a
// byte grows so slowly that a document of 1 MB would not meet a greater one, though twice the bytes cost it more than
// three times as much.
struct Budget {
  std::int64_t forNothing;  // instructions, whatever the length of the document
  std::int64_t forByte;
  const char* fault;
};

constexpr std::int64_t kMuch = std::int64_t{1} << 27;
constexpr std::int64_t kLittle = std::int64_t{1} << 25;

constexpr Budget kBudgets[] = {
    {kMuch, 2048, "too many tags in entities"},    {kMuch, 2048, "too many attributes declared"},
    {kMuch, 512, "too many attributes declared"},  {kMuch, 2048, "too many defaults of attributes declared"},
    {kMuch, 2048, "too long names of attributes"}, {kMuch, 2048, "too many or too long names of namespaces"},
    {kLittle, 128, "too deep in a namespace"},
};

}  // namespace

const char* DocumentLimits::CheckBudget(Attack attack, std::int64_t spent) {
  static_assert(std::size(kBudgets) == kAttacks);
  const Budget& budget = kBudgets[attack];
  allowed_[attack] = budget.forNothing + budget.forByte * XML_GetCurrentByteIndex(parser_);
  return spent <= allowed_[attack] ? nullptr : budget.fault;
}

const char* DocumentLimits::DeclareEntity(const XML_Char* name, std::string_view text, bool isParameter) {
  switch (entities_.Declare(name, text, isParameter)) {
    case EntityNesting::Result::kTooDeep:
      return kNestedTooDeep;
    case EntityNesting::Result::kOutOfMemory:
      return kOutOfMemory;
    default:
      return nullptr;
  }
}

// A start tag tells the local part of its name only, so the counts are kept for that too. The tokens of one tag have
// names of their own: there are no more of them than are declared, and each walks the attributes of one element.
const char* DocumentLimits::DeclareAttribute(std::string_view element, std::string_view type, bool hasDefault) {
  const std::size_t colon = element.find(':');
  Element* whole = elements_.FindOrMake(element);
  Element* local = elements_.FindOrMake(element.substr(colon == std::string_view::npos ? 0 : colon + 1));
  if (!whole || !local) return kOutOfMemory;
  ++whole->declared;
  local->most = std::max(local->most, whole->declared);
  mostDeclared_ = std::max(mostDeclared_, whole->declared);
  if (type != "CDATA") ++tokens_;
  if (hasDefault) expandsNames_ = true;
  const bool walks = hasDefault || type == "ID";
  const char* fault = Spend(kDeclared, kForDeclaration + (walks ? kForOlderDeclared * whole->declared : 0));
  return fault ? fault : CheckBudget(kTokens, kForTokenWalk * tokens_ * mostDeclared_);
}

const char* DocumentLimits::BindNamespace(const XML_Char* address) {
  if (!address) return nullptr;
  expandsNames_ = true;
  const auto size = static_cast<std::int64_t>(std::strlen(address));
  return Spend(kAddresses, kForBinding + kForBoundCharacter * size);
}

const char* DocumentLimits::StartElement(const XML_Char* name, std::string_view localName,
                                         const XML_Char** attributes) {
  ++depth_;
  const char* fault = Spend(kTags, kForTag);
  if (!fault && localName.data() != name) fault = NameInNamespace(name, localName);
  if (!fault && mostDeclared_ > kFewDeclared) fault = WalkDeclared(localName);
  if (!fault && expandsNames_) fault = WalkAttributes(attributes);
  return fault;
}

// Expat makes the name in the buffer of its binding. When that is too small, it takes a larger one and tells all open
// elements. So a name at the place of the one before has made none grow.
const char* DocumentLimits::NameInNamespace(const XML_Char* name, std::string_view localName) {
  const auto address = static_cast<std::size_t>(localName.data() - name);
  const bool mayGrow = name != lastName_ && address + localName.size() >= kSpare;
  lastName_ = name;
  const char* fault = Spend(kAddresses, static_cast<std::int64_t>(address) / kCopiedForOne);
  return !fault && mayGrow ? Spend(kBindings, kForOpenElement * depth_) : fault;
}

const char* DocumentLimits::WalkDeclared(std::string_view localName) {
  const Element* element = elements_.FindOrNull(localName);
  if (!element) return nullptr;
  const std::int64_t given = XML_GetSpecifiedAttributeCount(parser_) / 2;
  const std::int64_t walked = kForDeclared + kForTokenWalk * std::min(given, tokens_);
  return Spend(kDeclared, walked * element->most);
}

const char* DocumentLimits::WalkAttributes(const XML_Char** attributes) {
  const int given = XML_GetSpecifiedAttributeCount(parser_);
  std::int64_t defaults = 0;
  std::int64_t names = 0;
  for (int i = 0; attributes[i]; i += 2) {
    const XML_Char* local = LocalPart(attributes[i]);
    if (i >= given) defaults += kForDefault;
    if (local == attributes[i]) {
      if (i >= given) names += static_cast<std::int64_t>(std::strlen(local)) / kWalkedForOne;
      continue;
    }
    names += kForNameInNamespace + kForAddressCharacter * (local - attributes[i]) +
             kForNameCharacter * static_cast<std::int64_t>(std::strlen(local));
  }
  const char* fault = Spend(kDefaults, defaults);
  return fault ? fault : Spend(kLongNames, names);
}

}  // namespace steprt
