// The commands that open a dialog where there are windows: NEW, OPEN, SAVE, SAVEAS, QSAVE, PLOT and
// QUIT. Each asks on the command line, as it does without windows, when its answers are there
// already: typed ahead, in a script, or given by LISP. OPENFILE opens a drawing that was dropped or
// stands in the list of recent ones.
#pragma once

#include <optional>
#include <string>

#include "programs/desktop/plot_choices.h"

namespace desktop {

enum class PlotAnswer { Cancelled, Plot, PickWindow };

// What the windows ask; paths are UTF-8 and absolute.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual std::optional<std::string> askOpen() = 0;
  virtual std::optional<std::string> askSave(const std::string& suggested) = 0;
  virtual PlotAnswer askPlot(PlotChoices& choices) = 0;
};

class FileCommands {
 public:
  // Both outlive the object; the commands stay in the session's table and are called through it.
  FileCommands(drafting::Session& session, Dialogs& dialogs);
  ~FileCommands();
  FileCommands(const FileCommands&) = delete;
  FileCommands& operator=(const FileCommands&) = delete;

  // Whether the file of the drawing that is open may be written.
  bool readOnly = false;

 private:
  void add(const char* name, void (FileCommands::*run)());
  bool mayLeave();
  bool saveTo(const std::string& path);
  bool save();
  bool saveAs();
  void openPath(const std::string& path);

  void runNew();
  void runOpen();
  void runOpenFile();
  void runSave() { save(); }
  void runSaveAs() { saveAs(); }
  void runPlot();
  void runQuit();
  bool pickWindow();

  drafting::Session& session_;
  Dialogs& dialogs_;
  PlotChoices plot_;
};

}  // namespace desktop
