// Walks a block reference's definition with everything nested in it.
#include "engine/block_colours.h"

#include <memory>

namespace {

constexpr std::uint16_t kByBlock = 0;
constexpr std::uint16_t kByLayer = 256;

void CollectBlockTree(AcDbEntity& entity, AcDbObjectIdArray& records,
                      AcDbObjectIdArray& references);

void WalkBlockRecord(const AcDbBlockTableRecord& record, AcDbObjectIdArray& records,
                     AcDbObjectIdArray& references) {
  AcDbBlockTableRecordIterator* raw = nullptr;
  if (record.newIterator(raw, true, true) != Acad::eOk) return;
  const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(raw);
  for (iterator->start(true, true); !iterator->done(); iterator->step(true, true)) {
    AcDbEntity* entity = nullptr;
    if (iterator->getEntity(entity, AcDb::kForWrite) != Acad::eOk) continue;
    CollectBlockTree(*entity, records, references);
    if (AcDbBlockReference::cast(entity)) references.push_back(entity->objectId());
    entity->close();
  }
}

void CollectBlockTree(AcDbEntity& entity, AcDbObjectIdArray& records,
                      AcDbObjectIdArray& references) {
  const AcDbBlockReference* reference = AcDbBlockReference::cast(&entity);
  if (!reference) {
    entity.setColorIndex(kByBlock, true);
    return;
  }
  records.push_back(reference->blockTableRecord());
  AcDbObject* object = nullptr;
  if (acdbOpenAcDbObject(object, records.back(), AcDb::kForWrite) != Acad::eOk) return;
  if (const auto* record = AcDbBlockTableRecord::cast(object)) {
    WalkBlockRecord(*record, records, references);
  }
  object->close();
}

}  // namespace

void NormaliseBlockColours(AcDbEntity& reference) {
  AcDbObjectIdArray records;
  AcDbObjectIdArray references;
  CollectBlockTree(reference, records, references);
  reference.setColorIndex(kByLayer, true);
  for (const AcDbObjectId& id : references) {
    AcDbEntity* nested = nullptr;
    if (acdbOpenAcDbEntity(nested, id, AcDb::kForWrite) != Acad::eOk) continue;
    nested->setColorIndex(kByBlock, true);
    nested->close();
  }
}
