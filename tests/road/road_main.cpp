// Runs the text files of this folder: the module in the host, with a small library of its own.
//
// Symbols A01 (a line), B12 (a circle), N20 (A01 twice, as a block of blocks); auxiliary folders a
// and b with an item each. The circuits are those of kRows. Functions of the tests' own:
//   (zhlselect SLOT) (zhlitem FOLDER ITEM)   what clicks write
//   (slots)        the marker's slots: "空", or the type or block of the entity named there
//   (putmarker X Y COUNT TEXT...)   a marker of any content, on the marker's layer
//   (colours BLOCK) of the entities in the block
//   (loseindex)    takes the symbols' index file away
#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "host/module_entry.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "module/tree_values.h"
#include "module/value_chain.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "samples/generator/drawings.h"
#include "support/conversation.h"
#include "support/install.h"

namespace {

namespace fs = std::filesystem;
namespace lisp = drafting::lisp;
using Arguments = std::vector<lisp::Value>;

const wchar_t* const kWholeRow =
    LR"(("01" "A01" "3P 16A" 10 5 0 "B12" "" 0 -20 90 "&&&&" 0 10 30 10 30 10 30 -20 )"
    LR"("TEXT" "QF1" 1 3 5 2 0 "KM1" 3 2.5 35 -18 90))";

// By slot. 0 a whole circuit, 1 free, 2 with an unknown block, 3 unreadable, 4 a block alone, 5 a
// block of blocks by its file name, 6 with an empty text.
const wchar_t* const kRows[] = {
    kWholeRow,
    nullptr,
    LR"(("03" "A01" "" 0 0 0 "C99" "" 0 0 0 "B12" "" 0 0 0 "&&&&" 0 0 1 1 "TEXT" "QF1" 1 3 5 2 0))",
    L"bad",
    LR"(("05" "A01" "" 0 0 0 "&&&&"))",
    LR"(("06" "N20.DWG" "x y" 0 0 0 "&&&&"))",
    LR"(("07" "B12" "" 0 0 0 "&&&&" "TEXT" "" 1 3 5 2 0 "KM1" 2 2 10 0 0))"};

class Library {
 public:
  Library() {
    fs::create_directories(install_.root() / "system");
    fs::create_directories(install_.symbols() / "Dqbl0001");
    save(*samples::makeScaleMarkDrawing(), install_.root() / "system" / "Fah.dwg");
    save(*samples::makeFigureDrawing({{'L', {0, 0, 1, 0}, ""}}), symbol("A01.dwg"));
    save(*samples::makeFigureDrawing({{'C', {0, 0, 1}, ""}}), symbol("B12.dwg"));
    makeNested();
    test::writeBytes(install_.symbols() / "dwgdir.dab", "A01     0001B12     0001n20     0001");
    test::writeBytes(index(), "A01 breaker QF x 0 0 0 0 0\r\nB12 fuse FU x 0 0 0 0 0\r\n");
    makeCircuits();
    makeBar();
  }

  fs::path index() const { return symbol("Dqbl0001.idx"); }

 private:
  fs::path symbol(const char* name) const { return install_.symbols() / "Dqbl0001" / name; }

  static void save(const drafting::Database& database, const fs::path& path) {
    const base::Status status = drafting::saveDrawingFile(database, base::utf8FromPath(path));
    if (!status) ADD_FAILURE() << status.message();
  }

  void makeNested() {
    const auto database = drafting::Database::makeNew();
    const auto figure = samples::makeFigureDrawing({{'L', {0, 0, 1, 0}, ""}});
    const drafting::Handle block = drafting::cloneAsBlock(*database, *figure, "A01").block;
    for (const double x : {0.0, 5.0}) {
      auto insert = std::make_unique<drafting::Insert>();
      insert->block = block;
      insert->position = {x, 0, 0};
      insert->layer = database->findRecord(drafting::Table::Layers, "0");
      insert->colour = 5;
      database->append(database->modelSpace(), std::move(insert));
    }
    save(*database, symbol("N20.dwg"));
  }

  void makeCircuits() const {
    CQuillDpData tree;
    std::wstring names;
    int number = 0;
    for (const wchar_t* row : kRows) {
      ++number;
      const std::wstring name = L"主回路&0" + std::to_wstring(number);
      if (row) storeText(tree, L"ZHLLIB\\" + name, row);
      names += (row ? name : L"") + L"\x03";
    }
    storeText(tree, L"ZHLSY", names);
    storeText(tree, L"ZHLSY\\长度", std::to_wstring(number));
    tree.WriteDataToQdpFile(test::Install::wide(install_.library() / "zhllib.qdp").c_str());
  }

  void makeBar() const {
    CQuillDpData tree;
    storeText(tree, L"索引", L"a&b&");
    int number = 0;
    for (const std::wstring group : {L"a", L"b"}) {
      const std::string folder = "fzgn000" + std::to_string(++number);
      const std::string block = "FG" + std::to_string(number);
      fs::create_directories(install_.library() / folder);
      save(*samples::makeFigureDrawing({{'C', {0, 0, 2}, ""}}),
           install_.library() / folder / (block + ".dwg"));
      const std::wstring key = L"数据\\" + group;
      storeText(tree, key, base::wideFromUtf8(folder));
      storeText(tree, key + L"\\类型", L"0");
      storeText(tree, key + L"\\索引", L"item&");
      storeText(tree, key + L"\\数据\\item", base::wideFromUtf8(block));
    }
    tree.WriteDataToQdpFile(test::Install::wide(install_.library() / "zhlFzgn.qdp").c_str());
  }

  test::Install install_;
};

std::unique_ptr<Library> g_library;

lisp::Value selectSlot(lisp::Interpreter&, const Arguments& a) {
  libraryWindow()->SelectSlot(*a.at(0).integer());
  return lisp::Void{};
}

lisp::Value chooseItem(lisp::Interpreter& self, const Arguments& a) {
  const bool known = libraryWindow()->ChooseItem(*a.at(0).integer(), *a.at(1).integer());
  return known ? lisp::Void{} : self.fail("no such item");
}

lisp::Value slots(lisp::Interpreter& self, const Arguments&) {
  const drafting::Database& database = self.session().database();
  const auto app = database.findRecord(drafting::Table::AppIds, "ZHLKFZGN");
  Arguments found;
  for (const drafting::Handle handle : database.entitiesWithApp(app)) {
    const auto* entity = database.find<drafting::Entity>(handle);
    const auto items = drafting::decodeXData(drafting::findXData(*entity, app)->items);
    for (const auto& item : *items) {
      if (item.code != 1000) continue;
      const std::string& text = std::get<std::string>(item.value);
      const auto named = self.evaluateText("(handent \"" + text + "\")");
      const auto* insert =
          named->entity() ? database.find<drafting::Insert>(named->entity()->handle) : nullptr;
      found.emplace_back(insert ? std::string(database.recordName(insert->block)) : text);
    }
  }
  return lisp::Value::list(found);
}

lisp::Value putMarker(lisp::Interpreter&, const Arguments& a) {
  SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
  const ads_point at = {a.at(0).number(), a.at(1).number(), 0};
  acedCommand(RTSTR, L"POINT", RTPOINT, at, RTNONE);
  ads_name name;
  acdbEntLast(name);
  ValueChain chain;
  if (a.at(2).integer()) {
    chain.appendShort(1070, static_cast<std::int16_t>(*a.at(2).integer()));
  } else {
    chain.appendText(1000, base::wideFromUtf8(*a.at(2).text()));
  }
  for (std::size_t i = 3; i < a.size(); ++i)
    chain.appendText(1000, base::wideFromUtf8(*a[i].text()));
  chain.appendPoint(1011, {at[0], at[1], 0});
  AddXdata(name, L"ZHLKFZGN", chain.get());
  return {};
}

lisp::Value colours(lisp::Interpreter& self, const Arguments& a) {
  const drafting::Database& database = self.session().database();
  const auto* block = database.find<drafting::BlockRecord>(
      database.findRecord(drafting::Table::Blocks, *a.at(0).text()));
  Arguments found;
  for (const auto* entity = block ? block->first : nullptr; entity; entity = entity->next)
    found.emplace_back(int{entity->colour});
  return lisp::Value::list(found);
}

lisp::Value loseIndex(lisp::Interpreter&, const Arguments&) {
  fs::remove(g_library->index());
  return {};
}

void prepare(drafting::Session& session) {
  g_library = std::make_unique<Library>();
  session.lisp.define({"zhlselect", false, selectSlot});
  session.lisp.define({"zhlitem", false, chooseItem});
  session.lisp.define({"slots", false, slots});
  session.lisp.define({"putmarker", false, putMarker});
  session.lisp.define({"colours", false, colours});
  session.lisp.define({"loseindex", false, loseIndex});
  const base::Status status = session.modules.attach("Vornikplan10", acrxEntryPoint);
  if (!status) ADD_FAILURE() << status.message();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  test::registerConversations("tests/road", prepare);
  return RUN_ALL_TESTS();
}
