#include "embedded/drafting/database/clone.h"

#include <unordered_map>

#include "embedded/base/text.h"
#include "embedded/drafting/database/transform.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting {
namespace {

class Cloner {
 public:
  Cloner(Database& target, const Database& source) : target_(target), source_(source) {}

  CloneResult run(std::string_view name) {
    CloneResult result;
    name_ = name;
    result.block = makeBlock(name, source_.modelSpace(), source_.header.point("INSBASE"));
    result.leftBehind = leftBehind(name);
    return result;
  }

  std::vector<std::string> runInto(BlockRecord& block, const Point3& by) {
    by_ = by;
    for (const Entity* entity = source_.modelSpace().first; entity; entity = entity->next) {
      copyInto(block, *entity);
    }
    return leftBehind(block.name);
  }

  // The block's content as the target's model space.
  std::vector<std::string> writeOut(const BlockRecord& block) {
    takeStandards();
    for (const Entity* entity = block.first; entity; entity = entity->next) {
      copyInto(target_.modelSpace(), *entity);
    }
    target_.header.set("INSBASE", block.base);
    return leftBehind(block.name);
  }
  std::vector<std::string> writeOut(std::span<const Handle> entities, const Point3& base) {
    takeStandards();
    for (const Handle handle : entities) {
      if (const auto* entity = source_.find<Entity>(handle)) {
        copyInto(target_.modelSpace(), *entity);
      }
    }
    target_.header.set("INSBASE", base);
    return leftBehind("");
  }

 private:
  std::vector<std::string> leftBehind(std::string_view name) const {
    if (rawEntities_ == 0) return {};
    const std::string what = " entities of unknown kinds were left out";
    return {std::to_string(rawEntities_) + what +
            (name.empty() ? "" : " of block " + std::string(name))};
  }

  // What every new drawing has under the same name, and what gives its numbers their meaning.
  void takeStandards() {
    for (const char* name :
         {"INSUNITS", "MEASUREMENT", "LUNITS", "LUPREC", "LTSCALE", "DIMSCALE", "TEXTSIZE"}) {
      target_.header.set(name, *source_.header.find(name));
    }
    auto* layer = target_.find<Layer>(target_.findRecord(Table::Layers, "0"));
    if (const auto* from = source_.find<Layer>(source_.findRecord(Table::Layers, "0"))) {
      layer->colour = from->colour;
      layer->lineweight = from->lineweight;
      layer->linetype = record<Linetype>(Table::Linetypes, from->linetype);
    }
    auto* style = target_.find<TextStyle>(target_.findRecord(Table::Styles, "Standard"));
    const auto* from = source_.find<TextStyle>(source_.findRecord(Table::Styles, "Standard"));
    if (!from) return;
    style->font = from->font;
    style->bigFont = from->bigFont;
    style->widthFactor = from->widthFactor;
    style->oblique = from->oblique;
    style->fixedHeight = from->fixedHeight;
  }

  Handle makeBlock(std::string_view name, const BlockRecord& from, const Point3& base) {
    auto record = std::make_unique<BlockRecord>();
    record->name = name;
    record->base = base;
    record->description = from.description;
    record->hasAttdefs = from.hasAttdefs;
    const Handle handle = target_.addBlock(std::move(record));
    auto& block = *target_.find<BlockRecord>(handle);
    for (const Entity* entity = from.first; entity; entity = entity->next) copyInto(block, *entity);
    return handle;
  }

  void copyInto(BlockRecord& block, const Entity& entity) {
    if (entity.kind == Kind::RawEntity || entity.kind == Kind::GroupEntity) {
      ++rawEntities_;
      return;
    }
    const bool moves = block.isSpace();
    const Handle made = target_.append(block, copied(entity, moves));
    if (entity.kind == Kind::Attdef) block.hasAttdefs = true;
    const auto* polyline = dynamic_cast<const Polyline*>(&entity);
    const Point3 plane = polyline ? polyline->normal : kZAxis;
    for (const Handle member : memberHandles(entity)) {
      const auto* one = source_.find<Entity>(member);
      if (!one || one->kind == Kind::SeqEnd) continue;
      target_.appendMember(*target_.find<Entity>(made), copied(*one, moves, plane));
    }
  }

  // `moves`: the copy is put where the movement leads, as block contents aren't.
  std::unique_ptr<Entity> copied(const Entity& entity, bool moves, const Point3& plane = kZAxis) {
    std::unique_ptr<Entity> copy(static_cast<Entity*>(copyObject(entity).release()));
    if (moves && by_ != Point3{}) moveEntity(*copy, by_, plane);
    copy->extension = 0;
    copy->reactors.clear();
    copy->plotStyle = kByLayer;
    copy->layer = record<Layer>(Table::Layers, entity.layer);
    if (copy->linetype != kByLayer && copy->linetype != kByBlock && copy->linetype != kContinuous) {
      copy->linetype = record<Linetype>(Table::Linetypes, entity.linetype);
    }
    if (auto* text = dynamic_cast<TextBase*>(copy.get())) {
      text->style = record<TextStyle>(Table::Styles, text->style);
    } else if (auto* mtext = dynamic_cast<MText*>(copy.get())) {
      mtext->style = record<TextStyle>(Table::Styles, mtext->style);
    } else if (auto* insert = dynamic_cast<Insert*>(copy.get())) {
      insert->block = nested(insert->block);
    } else if (auto* hatch = dynamic_cast<Hatch*>(copy.get())) {
      hatch->associative = false;  // its boundary's entities stay behind
      for (Hatch::Path& path : hatch->paths) path.sources.clear();
    }
    if (const Members members = membersOf(*copy); members.list) {
      members.list->clear();
      *members.seqEnd = 0;
    }
    copyXData(*copy);
    return copy;
  }

  // Handles in extended data lead to objects that stay behind: they become null. Layers come along.
  void copyXData(Entity& copy) {
    for (XData& data : copy.xdata) {
      data.app = target_.registerApp(source_.recordName(data.app));
      mapXDataHandles(data.items, [this](int code, Handle handle) {
        return code == 1003 ? record<Layer>(Table::Layers, handle) : Handle{0};
      });
    }
  }

  Handle nested(Handle block) {
    const auto known = blocks_.find(block);
    if (known != blocks_.end()) return known->second;
    const auto* from = source_.find<BlockRecord>(block);
    if (!from) return 0;
    std::string name = from->name;
    if (name.starts_with('*') || base::equalsNoCase(name, name_)) {
      name = freeName(name);
    } else if (const Handle there = target_.findRecord(Table::Blocks, name)) {
      return blocks_[block] = there;
    }
    blocks_[block] = 0;  // a block within itself ends here
    return blocks_[block] = makeBlock(name, *from, from->base);
  }

  // A nameless block ("*U3") takes the next number; one that is named like the new block around it,
  // which it would otherwise be, takes a number behind its name.
  std::string freeName(const std::string& name) const {
    const bool nameless = name.starts_with('*');
    const std::string stem = nameless ? name.substr(0, 2) : name + "$";
    for (int number = nameless ? 1 : 0;; ++number) {
      std::string candidate = stem + std::to_string(number);
      if (target_.findRecord(Table::Blocks, candidate) == 0) return candidate;
    }
  }

  // The target's record of the same name, copied there if it is missing.
  template <class T>
  Handle record(Table table, Handle handle) {
    const auto* from = source_.find<T>(handle);
    if (!from) return defaultOf(table);
    const Handle there = target_.findRecord(table, from->name);
    if (there) return there;
    std::unique_ptr<T> copy(static_cast<T*>(copyObject(*from).release()));
    copy->extension = 0;
    copy->reactors.clear();
    copy->xdata.clear();
    copy->xref = 0;
    if constexpr (std::is_same_v<T, Layer>) {
      copy->plotStyle = target_.find<Layer>(defaultOf(Table::Layers))->plotStyle;
      copy->linetype = record<Linetype>(Table::Linetypes, from->linetype);
    }
    if constexpr (std::is_same_v<T, Linetype>) {
      for (Linetype::Dash& dash : copy->dashes) {
        if (dash.style) dash.style = record<TextStyle>(Table::Styles, dash.style);
      }
    }
    return target_.addRecord(table, std::move(copy));
  }

  Handle defaultOf(Table table) const {
    switch (table) {
      case Table::Styles: return target_.findRecord(table, "Standard");
      case Table::Linetypes: return target_.findRecord(table, "Continuous");
      default: return target_.findRecord(table, "0");
    }
  }

  Database& target_;
  const Database& source_;
  std::string_view name_;  // of the block being made
  Point3 by_;              // the movement of what goes into a space
  std::unordered_map<Handle, Handle> blocks_;
  std::size_t rawEntities_ = 0;
};

}  // namespace

CloneResult cloneAsBlock(Database& target, const Database& source, std::string_view name) {
  return Cloner(target, source).run(name);
}

std::vector<std::string> cloneMoved(Database& target, const Database& source, const Point3& by) {
  return Cloner(target, source).runInto(target.modelSpace(), by);
}

namespace {

template <class Content>
WrittenBlock written(const Database& source, Content content) {
  WrittenBlock written;
  written.drawing = Database::makeNew();
  written.drawing->codePage = source.codePage;
  written.drawing->journal().setRecording(false);
  Cloner cloner(*written.drawing, source);
  written.leftBehind = content(cloner);
  written.drawing->journal().setRecording(true);
  return written;
}

}  // namespace

WrittenBlock drawingOfBlock(const Database& source, const BlockRecord& block) {
  return written(source, [&](Cloner& cloner) { return cloner.writeOut(block); });
}

WrittenBlock drawingOfEntities(const Database& source, std::span<const Handle> entities,
                               const Point3& base) {
  return written(source, [&](Cloner& cloner) { return cloner.writeOut(entities, base); });
}

}  // namespace drafting
