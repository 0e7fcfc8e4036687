#include "names.h"

#include <unordered_set>

namespace express {

namespace {

using Entry = Schema::Entry;

// A step of a search: a schema, and the step from which it was reached.
struct Visit {
  Schema* schema;
  std::size_t from;
  bool exported;  // by an interface that passes names on
};

enum class Outcome { kFound, kUnknown, kMaybe };  // kMaybe: a schema that is missing may declare the name

// Finds an entry without following it: in the schema itself, else in those that it interfaces as a whole, and on
// through what these USE as a whole. The nearest wins. What is found is entered along the way, so that the next search
// is short.
class Search {
 public:
  explicit Search(Context& context) : context_(context) {}

  // `inside`: names of the schema itself, else only those that it passes on.
  Outcome Run(Schema& start, const std::string& folded, bool inside, const Place& place) {
    visits_.assign(1, {&start, 0, true});
    seen_ = {&start};
    Outcome none = Outcome::kUnknown;
    for (std::size_t i = 0; i < visits_.size(); ++i) {
      if (!context_.budget.Take(1, place)) return Outcome::kMaybe;
      Schema& schema = *visits_[i].schema;
      const bool own = inside && i == 0;
      if (const auto found = schema.names.find(folded); found != schema.names.end()) {
        if (own || found->second.exported) {
          entry_ = found->second;
          Remember(i, folded, place);
          return Outcome::kFound;
        }
      }
      if (!AddInterfaces(schema, i, own)) none = Outcome::kMaybe;
    }
    return none;
  }

  const Entry& Found() const { return entry_; }

 private:
  // False if one of the schemas is missing.
  bool AddInterfaces(Schema& schema, std::size_t from, bool own) {
    bool complete = true;
    for (const Interface& interface : schema.interfaces) {
      if (!interface.whole || !(interface.use || own)) continue;
      Schema* const target = interface.schema.target;
      if (target == nullptr) complete = false;
      if (target != nullptr && seen_.insert(target).second) visits_.push_back({target, from, interface.use});
    }
    return complete;
  }

  // An entry costs more than a visit, in time and in memory.
  void Remember(std::size_t at, const std::string& folded, const Place& place) {
    constexpr std::size_t kSteps = 16;
    while (at != 0 && context_.budget.Take(kSteps, place)) {
      Entry copy = entry_;
      copy.exported = visits_[at].exported;
      at = visits_[at].from;
      visits_[at].schema->names.emplace(folded, copy);
    }
  }

  Context& context_;
  std::vector<Visit> visits_;
  std::unordered_set<const Schema*> seen_;
  Entry entry_;
};

// Follows an entry that comes from a list: to the item of the other schema, which may come from a list itself, and so
// on. All items on the way get the declaration. A ring of items declares nothing.
Outcome Follow(Context& context, Entry entry, Declaration*& declaration) {
  std::vector<Interface::Item*> way;
  std::unordered_set<const Interface::Item*> seen;
  Search search(context);
  Outcome outcome = Outcome::kFound;
  while (entry.declaration == nullptr && entry.item != nullptr && entry.item->original.target == nullptr) {
    if (!seen.insert(entry.item).second) return Outcome::kUnknown;
    if (entry.interface->schema.target == nullptr) return Outcome::kMaybe;
    way.push_back(entry.item);
    const Name& original = entry.item->original.name;
    outcome = search.Run(*entry.interface->schema.target, Fold(original.text), false, original.place);
    if (outcome != Outcome::kFound) return outcome;
    entry = search.Found();
  }
  declaration = entry.declaration != nullptr ? entry.declaration : entry.item->original.target;
  for (Interface::Item* item : way) item->original.target = declaration;
  return Outcome::kFound;
}

void ReportTwice(Context& context, const Name& name, const Name& first) {
  context.Error(name, Code::kDuplicateName, "expected another name, " + Quoted(name) + " is taken in this schema");
  context.diagnostics.Note(first.place, "the first one is here");
}

void EnterDeclarations(Context& context, Schema& schema) {
  for (const auto& declaration : schema.declarations) {
    const auto [at, isNew] = schema.names.emplace(Fold(declaration->name.text), Entry{declaration.get()});
    if (!isNew) ReportTwice(context, declaration->name, at->second.declaration->name);
  }
}

void EnterInterfaces(Schema& schema) {
  for (Interface& interface : schema.interfaces) {
    for (Interface::Item& item : interface.items) {
      const auto [at, isNew] =
          schema.names.emplace(Fold(item.name.text), Entry{nullptr, &interface, &item, interface.use});
      // REFERENCE first and USE later: the name is passed on.
      if (!isNew && at->second.item != nullptr) at->second.exported = at->second.exported || interface.use;
    }
  }
}

void FindSchemas(Context& context) {
  std::unordered_map<std::string, Schema*> schemas;
  for (const auto& schema : context.model.schemas) {
    const auto [at, isNew] = schemas.emplace(Fold(schema->name.text), schema.get());
    if (isNew || schema->name.text.empty()) continue;
    context.Error(schema->name, Code::kDuplicateName, "expected one schema " + Quoted(schema->name) + " in all files");
    context.diagnostics.Note(at->second->name.place, "the first one is here");
  }
  for (const auto& schema : context.model.schemas) {
    for (Interface& interface : schema->interfaces) {
      const auto found = schemas.find(Fold(interface.schema.name.text));
      if (found != schemas.end()) {
        interface.schema.target = found->second;
        continue;
      }
      context.Error(interface.schema.name, Code::kUnknownSchema,
                    "expected a schema of these files, none is called " + Quoted(interface.schema.name));
    }
  }
}

// Each item gets its declaration. Two items, or an item and a declaration, may share a name only if they are the same.
void ResolveItems(Context& context, Schema& schema) {
  for (Interface& interface : schema.interfaces) {
    for (Interface::Item& item : interface.items) {
      Declaration* declaration = nullptr;
      const Outcome outcome = Follow(context, Entry{nullptr, &interface, &item, false}, declaration);
      if (outcome == Outcome::kUnknown) {
        context.Error(item.original.name, Code::kUnknownName,
                      "expected a declaration that " + Quoted(interface.schema.name) + " passes on, none is called " +
                          Quoted(item.original.name));
      }
      Entry& entry = schema.names.at(Fold(item.name.text));
      if (entry.item == &item) entry.declaration = declaration;
      const bool differs = declaration != nullptr && entry.declaration != nullptr && entry.declaration != declaration;
      if (differs) ReportTwice(context, item.name, entry.item ? entry.item->name : entry.declaration->name);
    }
  }
}

}  // namespace

void ResolveNames(Context& context) {
  FindSchemas(context);
  for (const auto& schema : context.model.schemas) EnterDeclarations(context, *schema);
  for (const auto& schema : context.model.schemas) EnterInterfaces(*schema);
  for (const auto& schema : context.model.schemas) {
    if (!context.diagnostics.Full()) ResolveItems(context, *schema);
  }
  // Entries that were copied before their item had its declaration.
  for (const auto& schema : context.model.schemas) {
    for (auto& [folded, entry] : schema->names) {
      if (entry.declaration == nullptr) entry.declaration = entry.item->original.target;
    }
  }
}

Declaration* Lookup(Context& context, Schema& schema, const Name& name) {
  const std::string folded = Fold(name.text);
  const auto known = schema.names.find(folded);
  if (known != schema.names.end()) return known->second.declaration;  // null for an item that has been reported

  Search search(context);
  const Outcome outcome = search.Run(schema, folded, true, name.place);
  if (outcome == Outcome::kFound) return search.Found().declaration;
  if (outcome == Outcome::kUnknown) {
    context.Error(name, Code::kUnknownName, "expected a name of this schema, none is called " + Quoted(name));
  }
  return nullptr;
}

namespace {

// `as` returns the declaration as what is wanted, or null.
template <class As>
auto LookupAs(Context& context, Schema& schema, const Name& name, const std::string& wanted, As as) {
  Declaration* const declaration = Lookup(context, schema, name);
  const auto found = as(declaration);
  if (declaration == nullptr || found != nullptr) return found;
  context.Error(name, Code::kWrongKind, "expected " + wanted + ", " + Quoted(name) + " is none");
  context.diagnostics.Note(declaration->name.place, "it is declared here");
  return found;
}

}  // namespace

Entity* LookupEntity(Context& context, Schema& schema, const Name& name) {
  return LookupAs(context, schema, name, "an entity", [](Declaration* each) { return AsEntity(each); });
}

DefinedType* LookupType(Context& context, Schema& schema, const Name& name) {
  return LookupAs(context, schema, name, "a defined type", [](Declaration* each) { return AsType(each); });
}

}  // namespace express
