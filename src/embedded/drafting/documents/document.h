// Document: a drawing that is open in the host, with the file it came from.
#pragma once

#include <memory>
#include <string>

#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/picking/entity_index.h"

class AcDbDatabaseState;

namespace drafting {

struct Document {
  Document() = default;
  ~Document();  // handles that modules still have lead nowhere from then on
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  // How it is shown: with the fonts beside its file.
  DisplayOptions display() const {
    DisplayOptions options;
    options.drawingFolder = folderOfDrawing(path);
    return options;
  }

  // Where its entities are seen; made when first asked for.
  EntityIndex& index() {
    if (!index_) index_ = std::make_unique<EntityIndex>(*database, display());
    return *index_;
  }

  std::unique_ptr<Database> database;
  std::string path;  // UTF-8; empty for a drawing never saved
  int locks = 0;     // lockDoc calls not yet undone
  // What modules' handles to this drawing share; made when a module first asks for the drawing.
  std::shared_ptr<AcDbDatabaseState> state;

 private:
  std::unique_ptr<EntityIndex> index_;  // goes before the drawing that it watches
};

}  // namespace drafting
