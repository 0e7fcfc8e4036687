// The read and write functions of all rows: two visitors of Entity::Describe.
#ifndef PLAN_TRANSFER_H
#define PLAN_TRANSFER_H

#include "attributes.h"

namespace plan {

// Reads the attributes of a new instance from the record at hand.
void ReadAttributes(STEPtransfer* transfer, Entity& entity);

// While one lives, the `$` that the XML form writes for an omitted text is read as the text that it is, so that a
// comparison sees it. Otherwise it becomes an empty text.
class KeepNullMarks {
 public:
  KeepNullMarks();
  ~KeepNullMarks();
  KeepNullMarks(const KeepNullMarks&) = delete;
  KeepNullMarks& operator=(const KeepNullMarks&) = delete;
};

// The write function of every row.
void WriteEntity(STEPtransfer* transfer, STEPheader* object);

// The read function of the row of T.
template <class T>
STEPheader* ReadEntity(STEPtransfer* transfer) {
  T* entity = Make<T>();
  if (entity) ReadAttributes(transfer, *entity);
  return entity;
}

}  // namespace plan

#endif
