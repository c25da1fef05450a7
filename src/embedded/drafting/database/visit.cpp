#include "embedded/drafting/database/visit.h"

namespace drafting {

std::unique_ptr<Object> makeObject(Kind kind) {
  return visitKind(kind,
                   []<class T>(T*) -> std::unique_ptr<Object> { return std::make_unique<T>(); });
}

std::unique_ptr<Object> copyObject(const Object& object) {
  std::unique_ptr<Object> copy = visit(object, []<class T>(const T& o) -> std::unique_ptr<Object> {
    return std::make_unique<T>(o);
  });
  copy->handle = 0;
  copy->owner = 0;
  if (isEntity(copy->kind)) {
    auto& entity = static_cast<Entity&>(*copy);
    entity.previous = entity.next = nullptr;
  } else if (copy->kind == Kind::BlockRecord) {
    auto& block = static_cast<BlockRecord&>(*copy);
    block.first = block.last = nullptr;
    block.count = 0;
  }
  return copy;
}

bool tableOfKind(Kind kind, Table& table) {
  switch (kind) {
    case Kind::BlockRecord: table = Table::Blocks; return true;
    case Kind::Layer: table = Table::Layers; return true;
    case Kind::TextStyle: table = Table::Styles; return true;
    case Kind::Linetype: table = Table::Linetypes; return true;
    case Kind::AppId: table = Table::AppIds; return true;
    case Kind::DimStyle: table = Table::DimStyles; return true;
    case Kind::Viewport: table = Table::Viewports; return true;
    default: return false;
  }
}

DimStyle::DimStyle() : Record(Kind::DimStyle) {
  for (const Variable& variable : dimensionVariables()) values.push_back(variable.initial);
}

bool BlockRecord::isSpace() const {
  constexpr std::string_view kModel = "*model_space", kPaper = "*paper_space";
  if (name.size() < kModel.size() || name[0] != '*') return false;
  const auto begins = [this](std::string_view prefix) {
    for (std::size_t i = 0; i < prefix.size(); ++i) {
      const char c = name[i];
      if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c) != prefix[i]) return false;
    }
    return true;
  };
  return (name.size() == kModel.size() && begins(kModel)) || begins(kPaper);
}

}  // namespace drafting
