// What the grid does with circuits, apart from its window. Each saves the library; a slot is the
// circuit's place in the list, and may lie beyond the list's end.
#pragma once

#include "library_window/pasted_circuit.h"

class CZhlkCircuitRecord;
class CZhlkLibStore;

// Puts the copied circuit into the slot: its row under the slot's number, and a slide made anew
// from the row, since the slide shows the number. The copy is what its slot holds now; without one
// it is the template. False, and nothing changed, when the row can't take a number.
bool pasteCircuit(CZhlkLibStore& store, int slot);

// Frees the slot and removes its slide.
void deleteCircuit(CZhlkLibStore& store, int slot);

// Takes an edited circuit over: its row, and the slide that was captured of it. Without a slide the
// cell stays black.
void storeEdit(CZhlkLibStore& store, int slot, const CString& name,
               const CZhlkCircuitRecord& circuit);
