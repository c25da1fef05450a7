#include "auxiliary/add_symbol.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "auxiliary/auxiliary_library.h"
#include "module/information.h"
#include "module/value_chain.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/framework_files.h"
#include "platform/framework_runtime.h"
#include "platform/slide_capture.h"
#include "platform/slide_store.h"

namespace {

constexpr int kEntered = 52;      // of errno: the pick was answered with Enter
constexpr int kFileVersion = 23;  // of saveAs
constexpr int kShare = 32;        // of readDwgFile: others may go on reading

bool answeredWithEnter() {
  resbuf value{};
  return acedGetVar(L"errno", &value) == RTNORM && value.restype == RTSHORT &&
         value.resval.rint == kEntered;
}

// A pick that hits nothing asks again.
int pickReference(ads_name entity) {
  const ValueChain filter(acutBuildList(RTDXF0, L"INSERT", RTNONE));
  while (true) {
    ads_point point{};
    switch (Xentsl(L"\n请选择要增加的图块<回车返回>:", filter.get(), entity, point)) {
      case RTNORM: return RTNORM;
      case RTCAN: return RTCAN;
      case RTERROR:
        if (answeredWithEnter()) return RTERROR;
        break;
      default: break;
    }
  }
}

// False when the reference can't be read.
bool findBlock(const ads_name entity, AcDbObjectId& block) {
  AcDbObjectId id;
  if (acdbGetObjectId(id, entity) != Acad::eOk) {
    acutPrintf(L"\n获取实体Id失败");
    return false;
  }
  AcDbEntity* object = nullptr;
  if (acdbOpenAcDbEntity(object, id, AcDb::kForRead) != Acad::eOk) return false;
  const auto* reference = AcDbBlockReference::cast(object);
  if (reference) block = reference->blockTableRecord();
  object->close();
  return reference != nullptr;
}

// The block as a drawing. Its dimensions shall have the usual arrowheads; the drawing it comes from
// keeps that setting, too.
std::unique_ptr<AcDbDatabase> writeOut(AcDbObjectId block) {
  AcDbDatabase* const source = acdbHostApplicationServices()->workingDatabase();
  if (!source) return nullptr;
  source->setDimblk(L".");
  source->setDimblk1(L".");
  source->setDimblk2(L".");
  AcDbDatabase* made = nullptr;
  const Acad::ErrorStatus status = source->wblock(made, block);
  std::unique_ptr<AcDbDatabase> drawing(made);
  return status == Acad::eOk ? std::move(drawing) : nullptr;
}

// A link of that name goes: the drawing would be written where it leads. Whether saving went well
// is seen when the file is read back.
void save(AcDbDatabase& drawing, const std::wstring& path) {
  if (isLink(path)) removeFile(path);
  drawing.saveAs(path.c_str(), false, kFileVersion, nullptr);
}

using Slide = std::vector<std::uint8_t>;

// The picture of the drawing file. None, with a message, when it can't be had.
std::optional<Slide> captured(AuxiliaryLibrary& library, const std::wstring& path) {
  AcDbDatabase drawing(false, false);
  if (drawing.readDwgFile(path.c_str(), kShare, false, nullptr) != Acad::eOk) {
    library.bar().notice(L"读取文件失败!");
    return std::nullopt;
  }
  CGetSld picture(&drawing);
  picture.SetChineseShxFileName(systemFolder() + L"\\datcom\\chinese.wzk");
  picture.SetEnglishShxFileName(systemFolder() + L"\\datcom\\english.wzk");
  if (picture.GetSldData() == 0) {
    acutPrintf(L"\n生成Sld失败!");
    return std::nullopt;
  }
  return Slide(picture.data, picture.data + picture.size);
}

// What fails here leaves an item without a slide.
void storeSlide(const std::wstring& path, const std::wstring& name, const Slide& slide) {
  if (isLink(path)) return;  // to another library
  CSlbMan slides;
  slides.OnOpenDocument(path.c_str());
  slides.AddSlideW(name.c_str(), slide.data(), static_cast<std::uint32_t>(slide.size()));
  slides.SaveModified();
}

}  // namespace

int AddSymbolFromDrawing(AuxiliaryLibrary& library) {
  ads_name entity{};
  if (const int picked = pickReference(entity); picked != RTNORM) return picked;
  AcDbObjectId block;
  if (!findBlock(entity, block)) return RTERROR;
  std::unique_ptr<AcDbDatabase> drawing = writeOut(block);
  if (!drawing) {
    acutPrintf(L"\n生成新图失败!");
    return RTERROR;
  }
  const NewItem item = library.NewItemKeys();
  if (item.block.empty()) {
    acutPrintf(L"\n当前图库组无法增加图库项,请修改其标题或删除不用的图库项!");
    return RTERROR;
  }
  const std::wstring path = inFolder(item.folderPath, item.block + L".dwg");
  save(*drawing, path);
  drawing.reset();
  const std::optional<Slide> slide = captured(library, path);
  if (!slide) {
    removeFile(path);
    library.RemoveItemKeys(item.label);
    return RTERROR;
  }
  const std::wstring slides = inFolder(item.folderPath, item.directory + L".slb");
  storeSlide(slides, item.block, *slide);
  library.AddItemImage(slides, item.block, item.label);
  return RTNORM;
}
