// CircuitDrawing: a circuit as a drawing of its own, which nobody sees but the slide that is made
// of it: symbols, lines, texts, the frame that all slides share, the circuit's number.
#pragma once

#include <memory>

#include "engine/row_reader.h"
#include "platform/acad.h"
#include "platform/framework_text.h"

class CZhlkCircuitRecord;

// Of the message boxes about rows and their slides.
constexpr const wchar_t* kCircuitCaption = L"回路编辑";

// Every step gives false after it has shown a message; the drawing is of no use then.
class CircuitDrawing {
 public:
  explicit CircuitDrawing(const CZhlkCircuitRecord& symbols) : symbols_(symbols) {}

  // Symbols are put in without their angle: no slide has ever shown it. An unknown symbol becomes
  // the empty cell, a stroke of wire.
  bool addBlocks(const CircuitRow& circuit);
  bool addLines(const CircuitRow& circuit);
  bool addTexts(const CircuitRow& circuit);
  bool addFrame();
  bool addNumber(const AcGePoint3d& place, const CString& number);

  AcDbDatabase* database() { return database_.get(); }

 private:
  bool addSymbol(const CString& name, const AcGePoint3d& place);
  bool addStroke(const AcGePoint3d& from, const AcGePoint3d& to);
  bool addText(const wchar_t* noRecord, std::unique_ptr<AcDbText> text, int colour);
  bool insertFile(const std::wstring& path, const AcGePoint3d* place, const wchar_t* unreadable);
  bool append(const wchar_t* noRecord, std::unique_ptr<AcDbEntity> entity);
  AcDbBlockTableRecord* openModelSpace(const wchar_t* noRecord);

  const CZhlkCircuitRecord& symbols_;
  std::unique_ptr<AcDbDatabase> database_ = std::make_unique<AcDbDatabase>(true, false);
};
