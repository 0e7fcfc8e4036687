#include "names.h"
#include "resolver.h"

namespace express {

namespace {

class References {
 public:
  References(Context& context, Schema& schema) : context_(context), schema_(schema) {}

  void Resolve(Declaration& declaration) {
    switch (declaration.kind) {
      case Declaration::Kind::kConstant:
        return ResolveType(static_cast<Constant&>(declaration).type.get());
      case Declaration::Kind::kType:
        return ResolveDefined(static_cast<DefinedType&>(declaration));
      case Declaration::Kind::kEntity:
        return ResolveEntity(static_cast<Entity&>(declaration));
      case Declaration::Kind::kFunction:
      case Declaration::Kind::kProcedure:
        return ResolveAlgorithm(static_cast<Algorithm&>(declaration));
      case Declaration::Kind::kRule:
        return ResolveList(static_cast<Rule&>(declaration).entities);
      case Declaration::Kind::kSubtypeConstraint:
        return ResolveConstraintOf(static_cast<SubtypeConstraint&>(declaration));
    }
  }

 private:
  void ResolveEntityName(Reference<Entity>& entity) { entity.target = LookupEntity(context_, schema_, entity.name); }

  void ResolveList(std::vector<Reference<Entity>>& entities) {
    for (Reference<Entity>& entity : entities) ResolveEntityName(entity);
  }

  // A name in the place of a type: a defined type or an entity.
  void ResolveTypeName(Reference<Declaration>& type) {
    Declaration* const declaration = Lookup(context_, schema_, type.name);
    if (AsEntity(declaration) != nullptr || AsType(declaration) != nullptr) type.target = declaration;
    if (declaration == nullptr || type.target != nullptr) return;
    context_.Error(type.name, Code::kWrongKind, "expected a type or an entity, " + Quoted(type.name) + " is neither");
    context_.diagnostics.Note(declaration->name.place, "it is declared here");
  }

  void ResolveType(Type* type) {
    while (type != nullptr && type->element != nullptr) type = type->element.get();
    if (type != nullptr && type->kind == Type::Kind::kNamed) ResolveTypeName(type->named);
  }

  void ResolveDefined(DefinedType& type) {
    ResolveType(type.underlying.get());
    if (type.base) type.base->target = LookupType(context_, schema_, type.base->name);
    for (Reference<Declaration>& member : type.members) ResolveTypeName(member);
  }

  void ResolveEntity(Entity& entity) {
    ResolveList(entity.supertypes);
    if (entity.constraint) ResolveConstraint(*entity.constraint);
    const Type* previous = nullptr;
    for (Attribute& attribute : entity.attributes) {
      if (attribute.type.get() != previous) ResolveType(attribute.type.get());
      previous = attribute.type.get();
      if (attribute.redeclaration) ResolveEntityName(attribute.redeclaration->entity);
      if (attribute.inverseEntity) ResolveEntityName(*attribute.inverseEntity);
    }
  }

  void ResolveConstraint(Constraint& constraint) {
    if (constraint.kind == Constraint::Kind::kEntity) ResolveEntityName(constraint.entity);
    for (Constraint& operand : constraint.operands) ResolveConstraint(operand);
  }

  void ResolveConstraintOf(SubtypeConstraint& constraint) {
    ResolveEntityName(constraint.entity);
    ResolveList(constraint.totalOver);
    if (constraint.constraint) ResolveConstraint(*constraint.constraint);
  }

  void ResolveAlgorithm(Algorithm& algorithm) {
    const Type* previous = nullptr;
    for (Parameter& parameter : algorithm.parameters) {
      if (parameter.type.get() != previous) ResolveType(parameter.type.get());
      previous = parameter.type.get();
    }
    ResolveType(algorithm.result.get());
  }

  Context& context_;
  Schema& schema_;
};

}  // namespace

void ResolveReferences(Context& context) {
  for (const auto& schema : context.model.schemas) {
    References references(context, *schema);
    for (const auto& declaration : schema->declarations) {
      if (context.diagnostics.Full()) return;
      references.Resolve(*declaration);
    }
  }
}

}  // namespace express
