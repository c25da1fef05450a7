// PLOT: the drawing to a file. Asks for the sheet, the part of the drawing, colours and the file,
// and leaves the work to drafting/plot.
#include "embedded/drafting/commands/ask.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/plot/plot.h"

namespace drafting {
namespace {

class PlotCommand {
 public:
  explicit PlotCommand(Session& session) : session_(session) {}

  void run() {
    if (!askPaper() || !askArea() || !askColours()) return;
    const std::string path =
        askPath(session_, "\n输出文件 (.pdf、.svg、.png): ", "\nPlot to file (.pdf, .svg, .png): ");
    if (path.empty()) return;
    options_.drawingFolder = folderOfDrawing(session_.document().path);
    const base::Status status =
        plotDrawing(session_.database(), path, options_,
                    [this](std::string_view note) { session_.print("\n" + std::string(note)); });
    if (!status) {
      session_.printProblem(status);
      return;
    }
    session_.print("\n" + message(session_, "已输出 ", "Plotted to ") + path);
  }

 private:
  bool askPaper() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Word,
           .message = message(session_, "\n图纸 (A0-A4、A3x4、宽x高) <按绘图比例>: ",
                              "\nPaper (A0-A4, A3x4, WIDTHxHEIGHT) <by the print scale>: ")});
      if (answer.cancelled()) return false;
      if (answer.entered()) return true;
      options_.paper = parsePaper(answer.text);
      if (options_.paper) return true;
      session_.print(session_.say("\n无效的图纸。", "\nThat is no paper size."));
    }
  }

  bool askArea() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Keyword,
         .message = message(session_, "\n打印区域 [显示(D)/范围(E)/窗口(W)] <E>: ",
                            "\nArea [Display/Extents/Window] <E>: "),
         .keywords = "Display Extents Window"});
    if (answer.cancelled()) return false;
    if (answer.isKeyword("Display")) options_.window = session_.view.window();
    if (!answer.isKeyword("Window")) return true;
    options_.window = askRectangle(session_);
    return options_.window.has_value();
  }

  bool askColours() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Keyword,
         .message =
             message(session_, "\n单色? [是(Y)/否(N)] <N>: ", "\nMonochrome? [Yes/No] <N>: "),
         .keywords = "Yes No"});
    options_.monochrome = answer.isKeyword("Yes");
    return !answer.cancelled();
  }

  Session& session_;
  PlotOptions options_;
};

}  // namespace

void addPlotCommand(CommandTable& table) {
  table.add({.name = "PLOT",
             .run = [](Session& session) { PlotCommand(session).run(); },
             .recordsItself = true});
  table.addAlias("PRINT", "PLOT");
  table.addAlias("-PLOT", "PLOT");
}

}  // namespace drafting
