#include "relations.h"

#include "schema.h"

namespace plan {

Relations::Relations(STEPmodel& model) {
  ForEach<RelVoidsElement>(model, [this](RelVoidsElement& relation) {
    Element* element = relation.element.Get();
    OpeningElement* opening = relation.opening.Get();
    if (element && opening) openings[element].push_back(opening);
  });
  ForEach<RelFillsElement>(model, [this](RelFillsElement& relation) {
    Element* element = relation.element.Get();
    OpeningElement* opening = relation.opening.Get();
    if (element && opening) filling[opening] = element;
  });
  ForEach<RelDefinesByType>(model, [this](RelDefinesByType& relation) {
    TypeProduct* definition = relation.type.Get();
    if (!definition) return;
    for (Object* object : relation.objects.All()) type[object] = definition;
  });
  ForEach<RelContainedInSpatialStructure>(model, [this](RelContainedInSpatialStructure& relation) {
    for (Product* product : relation.elements.All()) containment[product] = &relation;
  });
}

}  // namespace plan
