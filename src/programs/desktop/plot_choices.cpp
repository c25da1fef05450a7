#include "programs/desktop/plot_choices.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "programs/desktop/settings_text.h"

namespace desktop {

namespace {

std::string extensionOf(const std::string& file) {
  return base::capitals(base::utf8FromWide(base::extensionOf(base::wideFromUtf8(file))));
}

base::Status problem(const drafting::Session& session, std::string_view chinese,
                     std::string_view english) {
  return base::Status::failure(std::string(session.say(chinese, english)));
}

}  // namespace

base::Result<drafting::PlotOptions> plotOptions(const drafting::Session& session,
                                                const PlotChoices& choices) {
  drafting::PlotOptions options;
  if (!choices.paper.empty()) {
    options.paper = drafting::parsePaper(choices.paper);
    if (!options.paper) return problem(session, "无效的图纸尺寸。", "That is no paper size.");
  }
  options.keepUpright = choices.upright;
  options.monochrome = choices.monochrome;
  options.lineweights = choices.lineweights;
  if (choices.area == PlotArea::Display) options.window = session.view.window();
  if (choices.area == PlotArea::Window) {
    if (!choices.window) return problem(session, "没有指定窗口。", "There is no window yet.");
    options.window = choices.window;
  }
  if (!choices.fit) {
    const auto scale = parseScale(choices.scale);
    if (!scale || *scale == 0) return problem(session, "无效的比例。", "That is no scale.");
    options.scale = 1 / *scale;
  }
  const std::string extension = extensionOf(choices.file);
  if (extension != ".PDF" && extension != ".SVG" && extension != ".PNG") {
    return problem(session, "文件名应以 .pdf、.svg 或 .png 结尾。",
                   "The file's name must end with .pdf, .svg or .png.");
  }
  options.drawingFolder = drafting::folderOfDrawing(session.document().path);
  return options;
}

std::string plotFileFor(const drafting::Session& session) {
  const std::wstring path = base::wideFromUtf8(session.document().path);
  if (path.empty()) return "drawing.pdf";
  const std::wstring file = std::wstring(base::stemOf(path)) + L".pdf";
  return base::utf8FromWide(base::joinPath(base::folderOf(path), file));
}

bool plot(drafting::Session& session, const PlotChoices& choices) {
  const auto options = plotOptions(session, choices);
  const base::Status status =
      options.ok() ? drafting::plotDrawing(session.database(), choices.file, *options,
                                           [&session](std::string_view note) {
                                             session.print("\n" + std::string(note));
                                           })
                   : options.status();
  if (!status) {
    session.printProblem(status);
  } else {
    session.print("\n" + std::string(session.say("已输出 ", "Plotted to ")) + choices.file);
  }
  return status.ok();
}

}  // namespace desktop
