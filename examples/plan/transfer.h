// The read and write functions of all rows: two visitors of Entity::Describe.
#ifndef PLAN_TRANSFER_H
#define PLAN_TRANSFER_H

#include "attributes.h"

namespace plan {

// Reads the attributes of a new instance from the record at hand.
void ReadAttributes(STEPtransfer* transfer, Entity& entity);

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
