// The empty drawing. Its handles are those that every drawing starts with; the objects that the
// database only carries through (layouts, the multiline style) are made of their DWG bits here.
#include <chrono>
#include <cstdio>
#include <random>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dwg/bit_writer.h"

namespace drafting {
namespace {

// Handles of the standard objects.
enum : Handle {
  kNamedDictionary = 0xC,
  kGroups = 0xD,
  kPlotStyles = 0xE,
  kPlotStyleNormal = 0xF,
  kLayerZero = 0x10,
  kStyleStandard = 0x11,
  kAppAcad = 0x12,
  kLinetypeByBlock = 0x14,
  kLinetypeByLayer = 0x15,
  kLinetypeContinuous = 0x16,
  kMlineStyles = 0x17,
  kMlineStandard = 0x18,
  kPlotSettings = 0x19,
  kLayouts = 0x1A,
  kPaperSpace = 0x1B,
  kPaperLayout = 0x1E,
  kModelSpace = 0x1F,
  kModelLayout = 0x22,
  kDimStandard = 0x27,
  kViewActive = 0x29,
};

constexpr std::array<Handle, kTableCount> kControls{1, 2, 3, 5, 6, 7, 8, 9, 0xA, 0xB};

constexpr std::uint16_t kClassPlaceholder = 501, kClassLayout = 502, kTypeMlineStyle = 0x49;

class NewDrawing {
 public:
  explicit NewDrawing(Database& database) : db_(database) {}

  void fill() {
    addClasses();
    addControls();
    addRecords();
    addDictionaries();
    addSpace(kPaperSpace, "*Paper_Space", kPaperLayout);
    addSpace(kModelSpace, "*Model_Space", kModelLayout);
    addLayout(kPaperLayout, kPaperSpace, "Layout1", 1);
    addLayout(kModelLayout, kModelSpace, "Model", 0);
    addMlineStyle();
    setHeader();
  }

 private:
  template <class T>
  T& add(Handle handle, Handle owner) {
    auto object = std::make_unique<T>();
    T& made = *object;
    made.handle = handle;
    made.owner = owner;
    db_.adopt(std::move(object));
    return made;
  }
  template <class T>
  T& addRecord(Handle handle, Table table, const char* name) {
    Control& control = *db_.find<Control>(kControls[static_cast<std::size_t>(table)]);
    T& record = add<T>(handle, control.handle);
    record.name = name;
    control.records.push_back(handle);
    return record;
  }
  void addClasses() {
    const auto add = [this](const char* cppName, const char* dxfName) {
      db_.classes.push_back({static_cast<std::uint16_t>(500 + db_.classes.size()), 0,
                             "ObjectDBX Classes", cppName, dxfName, false, 0x1F3});
    };
    add("AcDbDictionaryWithDefault", "ACDBDICTIONARYWDFLT");
    add("AcDbPlaceHolder", "ACDBPLACEHOLDER");
    add("AcDbLayout", "LAYOUT");
  }
  void addControls() {
    for (std::size_t i = 0; i < kTableCount; ++i) {
      add<Control>(kControls[i], 0).table = static_cast<Table>(i);
    }
  }
  void addRecords();
  void addDictionaries();
  void addSpace(Handle handle, const char* name, Handle layout);
  void addLayout(Handle handle, Handle space, const char* name, std::uint32_t tab);
  void addMlineStyle();
  void addRaw(Handle handle, Handle dictionary, std::uint16_t type, BitWriter& body,
              std::vector<Reference> references);
  void setHeader();

  Database& db_;
};

void text(BitWriter& w, std::string_view ascii) {
  w.shortInteger(static_cast<std::uint16_t>(ascii.size()));
  w.bytes(ascii);
}

void NewDrawing::addRecords() {
  addRecord<Linetype>(kLinetypeContinuous, Table::Linetypes, "Continuous").description =
      "Solid line";
  Control& linetypes = *db_.find<Control>(kControls[static_cast<std::size_t>(Table::Linetypes)]);
  add<Linetype>(kLinetypeByBlock, linetypes.handle).name = "ByBlock";
  add<Linetype>(kLinetypeByLayer, linetypes.handle).name = "ByLayer";
  linetypes.extras = {kLinetypeByBlock, kLinetypeByLayer};
  Layer& layer = addRecord<Layer>(kLayerZero, Table::Layers, "0");
  layer.linetype = kLinetypeContinuous;
  layer.plotStyle = kPlotStyleNormal;
  // Names that other programs resolve; the second one brings the Chinese characters.
  TextStyle& style = addRecord<TextStyle>(kStyleStandard, Table::Styles, "Standard");
  style.font = "txt";
  style.bigFont = "gbcbig";
  addRecord<AppId>(kAppAcad, Table::AppIds, "ACAD");
  addRecord<DimStyle>(kDimStandard, Table::DimStyles, "Standard");
  addRecord<Viewport>(kViewActive, Table::Viewports, "*Active");
}

void NewDrawing::addDictionaries() {
  add<Dictionary>(kNamedDictionary, 0).items = {{"ACAD_GROUP", kGroups},
                                                {"ACAD_LAYOUT", kLayouts},
                                                {"ACAD_MLINESTYLE", kMlineStyles},
                                                {"ACAD_PLOTSETTINGS", kPlotSettings},
                                                {"ACAD_PLOTSTYLENAME", kPlotStyles}};
  const auto nested = [this](Handle handle) -> Dictionary& {
    Dictionary& dictionary = add<Dictionary>(handle, kNamedDictionary);
    dictionary.reactors = {kNamedDictionary};
    return dictionary;
  };
  nested(kGroups);
  nested(kPlotSettings);
  nested(kMlineStyles).items = {{"Standard", kMlineStandard}};
  nested(kLayouts).items = {{"Layout1", kPaperLayout}, {"Model", kModelLayout}};
  Dictionary& plotStyles = nested(kPlotStyles);
  plotStyles.items = {{"Normal", kPlotStyleNormal}};
  plotStyles.withDefault = true;
  plotStyles.defaultItem = kPlotStyleNormal;
  BitWriter nothing;
  addRaw(kPlotStyleNormal, kPlotStyles, kClassPlaceholder, nothing, {});
}

void NewDrawing::addSpace(Handle handle, const char* name, Handle layout) {
  Control& blocks = *db_.find<Control>(kControls[static_cast<std::size_t>(Table::Blocks)]);
  BlockRecord& space = add<BlockRecord>(handle, blocks.handle);
  space.name = name;
  space.begin = handle + 1;
  space.end = handle + 2;
  space.layout = layout;
  Block& begin = add<Block>(space.begin, handle);
  begin.name = name;
  begin.layer = kLayerZero;
  add<EndBlock>(space.end, handle).layer = kLayerZero;
  blocks.extras = {kModelSpace, kPaperSpace};
}

// Object of a kind that is carried through; owned by a dictionary, which is also its reactor.
void NewDrawing::addRaw(Handle handle, Handle dictionary, std::uint16_t type, BitWriter& body,
                        std::vector<Reference> references) {
  RawObject& object = add<RawObject>(handle, dictionary);
  object.reactors = {dictionary};
  object.type = type;
  object.body.count = static_cast<std::uint32_t>(body.position());
  object.body.bytes = body.finish();
  object.references = std::move(references);
}

void NewDrawing::addLayout(Handle handle, Handle space, const char* name, std::uint32_t tab) {
  const bool paper = tab > 0;
  BitWriter w;
  text(w, "");             // page name
  text(w, "none_device");  // printer
  w.shortInteger(paper ? 688 : 1712);
  for (const double margin : {7.5, 20.0, 7.5, 20.0}) w.real(margin);
  w.real(420);
  w.real(297);
  text(w, "ISO_A3_(420.00_x_297.00_MM)");
  w.real(0);  // plot origin
  w.real(0);
  w.shortInteger(1);              // millimetres
  w.shortInteger(0);              // rotation
  w.shortInteger(paper ? 5 : 0);  // what is plotted
  for (int i = 0; i < 4; ++i) w.real(0);
  text(w, "");
  w.real(1);  // real units
  w.real(1);  // drawing units
  text(w, "");
  w.shortInteger(paper ? 16 : 0);
  w.real(1);
  w.real(0);  // image origin
  w.real(0);
  text(w, name);
  w.longInteger(tab);
  w.shortInteger(1);
  w.point({});
  w.flat({0, 0});
  w.flat({420, 297});
  w.point({});
  w.point({1, 0, 0});
  w.point({0, 1, 0});
  w.real(0);
  w.shortInteger(0);
  w.point({});  // extents
  w.point({});
  addRaw(handle, kLayouts, kClassLayout, w,
         {{kSoftPointer, space}, {kSoftPointer, 0}, {kHardPointer, 0}, {kHardPointer, 0}});
}

void NewDrawing::addMlineStyle() {
  constexpr double kRight = base::kPi / 2;
  BitWriter w;
  text(w, "STANDARD");
  text(w, "");
  w.shortInteger(0);
  w.shortInteger(256);
  w.real(kRight);
  w.real(kRight);
  w.rawByte(2);
  for (const double offset : {0.5, -0.5}) {
    w.real(offset);
    w.shortInteger(256);
    w.shortInteger(0x7FFF);
  }
  addRaw(kMlineStandard, kMlineStyles, kTypeMlineStyle, w, {});
}

// Julian day with the time as its fraction, universal time.
double now() {
  using namespace std::chrono;
  const auto since = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
  return 2440588.0 + static_cast<double>(since.count()) / 86400000.0;
}

std::string makeGuid() {
  std::random_device random;
  unsigned part[4];
  for (unsigned& p : part) p = random();
  char out[40];
  std::snprintf(out, sizeof out, "{%08X-%04X-%04X-%04X-%04X%08X}", part[0], part[1] >> 16,
                part[1] & 0xFFFF, part[2] >> 16, part[2] & 0xFFFF, part[3]);
  return out;
}

void NewDrawing::setHeader() {
  Header& header = db_.header;
  header.set("CLAYER", Handle{kLayerZero});
  header.set("TEXTSTYLE", Handle{kStyleStandard});
  header.set("CELTYPE", Handle{kLinetypeByLayer});
  header.set("DIMSTYLE", Handle{kDimStandard});
  header.set("CMLSTYLE", Handle{kMlineStandard});
  header.set("DIMTXSTY", Handle{kStyleStandard});
  header.set("NAMED_DICTIONARY", Handle{kNamedDictionary});
  header.set("GROUP_DICTIONARY", Handle{kGroups});
  header.set("MLINESTYLE_DICTIONARY", Handle{kMlineStyles});
  header.set("LAYOUT_DICTIONARY", Handle{kLayouts});
  header.set("PLOTSETTINGS_DICTIONARY", Handle{kPlotSettings});
  header.set("PLOTSTYLE_DICTIONARY", Handle{kPlotStyles});
  const double time = now();
  header.set("TDCREATE", time);
  header.set("TDUPDATE", time);
  header.set("FINGERPRINTGUID", makeGuid());
  header.set("VERSIONGUID", makeGuid());
  auto* style = db_.find<DimStyle>(kDimStandard);
  const auto table = dimensionVariables();
  for (std::size_t i = 0; i < table.size(); ++i) style->values[i] = *header.find(table[i].name);
}

}  // namespace

std::unique_ptr<Database> Database::makeNew() {
  auto database = std::make_unique<Database>();
  database->journal().setRecording(false);
  NewDrawing(*database).fill();
  database->finishLoading();
  database->journal().setRecording(true);
  return database;
}

}  // namespace drafting
