#include "programs/desktop/windows/dialogs.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "platform/framework_file_dialog.h"
#include "programs/desktop/boxes.h"
#include "programs/desktop/command_ids.h"
#include "programs/desktop/settings_text.h"

using desktop::PlotAnswer;
using desktop::PlotArea;

namespace {

std::wstring wide(std::string_view utf8) { return base::wideFromUtf8(utf8); }

std::wstring drawingFilter(const drafting::Session& session) {
  return wide(session.say("图形 (*.dwg;*.dxf)|*.dwg;*.dxf|DWG (*.dwg)|*.dwg|DXF (*.dxf)|*.dxf||",
                          "Drawings (*.dwg;*.dxf)|*.dwg;*.dxf|DWG (*.dwg)|*.dwg|"
                          "DXF (*.dxf)|*.dxf||"));
}

std::optional<std::string> ask(CFileDialog& dialog) {
  if (dialog.DoModal() != IDOK) return {};
  return base::utf8FromWide(dialog.GetPathName().wide());
}

void setText(HWND dialog, int id, std::string_view utf8) {
  ::SetDlgItemTextW(dialog, id, wide(utf8).c_str());
}

}  // namespace

// --- files

std::optional<std::string> WindowDialogs::askOpen() {
  const std::wstring filter = drawingFilter(session_);
  CFileDialog dialog(TRUE, L"dwg", L"", 0, filter.c_str());
  return ask(dialog);
}

std::optional<std::string> WindowDialogs::askSave(const std::string& suggested) {
  const std::wstring filter = drawingFilter(session_);
  CFileDialog dialog(FALSE, L"dwg", wide(suggested).c_str(), 0, filter.c_str());
  return ask(dialog);
}

PlotAnswer WindowDialogs::askPlot(desktop::PlotChoices& choices) {
  PlotDialog dialog(session_, choices);
  dialog.DoModal();
  return dialog.answer;
}

// --- plot

BEGIN_MESSAGE_MAP(PlotDialog, CDialog)
ON_BN_CLICKED(IDC_PLOT_PICK, OnPick)
ON_BN_CLICKED(IDC_PLOT_BROWSE, OnBrowse)
ON_BN_CLICKED(IDC_PLOT_FIT, OnFit)
END_MESSAGE_MAP()

PlotDialog::PlotDialog(drafting::Session& session, desktop::PlotChoices& choices)
    : CDialog(IDD_PLOT), session_(session), choices_(choices) {}

std::string PlotDialog::TextOf(int id) const {
  wchar_t text[1024] = L"";
  ::GetDlgItemTextW(m_hWnd, id, text, 1024);
  const std::string utf8 = base::utf8FromWide(text);
  return std::string(base::trim(utf8));
}

void PlotDialog::SetTextOf(int id, std::string_view utf8) { setText(m_hWnd, id, utf8); }

void PlotDialog::SetTexts() {
  const struct {
    int id;
    std::string_view chinese, english;
  } texts[] = {
      {IDC_PLOT_LABEL_PAPER, "图纸", "Paper"},
      {IDC_PLOT_UPRIGHT, "不旋转图纸", "Don't turn the sheet"},
      {IDC_PLOT_GROUP_AREA, "打印区域", "Area"},
      {IDC_PLOT_EXTENTS, "范围", "Extents"},
      {IDC_PLOT_DISPLAY, "显示", "Display"},
      {IDC_PLOT_WINDOW, "窗口", "Window"},
      {IDC_PLOT_PICK, "指定 <", "Pick <"},
      {IDC_PLOT_GROUP_SCALE, "比例", "Scale"},
      {IDC_PLOT_FIT, "布满图纸", "Fit the paper"},
      {IDC_PLOT_LABEL_SCALE, "比例", "Scale"},
      {IDC_PLOT_MONOCHROME, "单色", "Monochrome"},
      {IDC_PLOT_LINEWEIGHTS, "线宽", "Lineweights"},
      {IDC_PLOT_LABEL_FILE, "文件", "File"},
      {IDOK, "打印", "Plot"},
      {IDCANCEL, "取消", "Cancel"},
  };
  SetWindowText(wide(session_.say("打印", "Plot")).c_str());
  for (const auto& text : texts) SetTextOf(text.id, session_.say(text.chinese, text.english));
}

BOOL PlotDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  SetTexts();
  for (const wchar_t* paper : {L"A4", L"A3", L"A2", L"A1", L"A0", L"A4x3", L"A3x3"}) {
    ::SendDlgItemMessageW(m_hWnd, IDC_PLOT_PAPER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(paper));
  }
  SetTextOf(IDC_PLOT_PAPER, choices_.paper);
  SetTextOf(IDC_PLOT_SCALE, choices_.scale);
  SetTextOf(IDC_PLOT_FILE, choices_.file);
  Check(IDC_PLOT_UPRIGHT, choices_.upright);
  Check(IDC_PLOT_FIT, choices_.fit);
  Check(IDC_PLOT_MONOCHROME, choices_.monochrome);
  Check(IDC_PLOT_LINEWEIGHTS, choices_.lineweights);
  const int area = choices_.area == PlotArea::Extents   ? IDC_PLOT_EXTENTS
                   : choices_.area == PlotArea::Display ? IDC_PLOT_DISPLAY
                                                        : IDC_PLOT_WINDOW;
  ::CheckRadioButton(m_hWnd, IDC_PLOT_EXTENTS, IDC_PLOT_WINDOW, area);
  ::EnableWindow(::GetDlgItem(m_hWnd, IDC_PLOT_WINDOW), choices_.window.has_value());
  OnFit();
  return TRUE;
}

void PlotDialog::TakeChoices() {
  choices_.paper = TextOf(IDC_PLOT_PAPER);
  choices_.scale = TextOf(IDC_PLOT_SCALE);
  choices_.file = TextOf(IDC_PLOT_FILE);
  choices_.upright = Checked(IDC_PLOT_UPRIGHT);
  choices_.fit = Checked(IDC_PLOT_FIT);
  choices_.monochrome = Checked(IDC_PLOT_MONOCHROME);
  choices_.lineweights = Checked(IDC_PLOT_LINEWEIGHTS);
  choices_.area = Checked(IDC_PLOT_EXTENTS)   ? PlotArea::Extents
                  : Checked(IDC_PLOT_DISPLAY) ? PlotArea::Display
                                              : PlotArea::Window;
}

// What is wrong is told, and the dialog stays.
void PlotDialog::OnOK() {
  TakeChoices();
  const auto options = desktop::plotOptions(session_, choices_);
  if (!options.ok()) {
    MessageBox(wide(options.message()).c_str(), std::wstring(desktop::kProgramTitle).c_str(),
               MB_ICONWARNING);
    return;
  }
  answer = PlotAnswer::Plot;
  EndDialog(IDOK);
}

void PlotDialog::OnPick() {
  TakeChoices();
  answer = PlotAnswer::PickWindow;
  EndDialog(IDOK);
}

void PlotDialog::OnBrowse() {
  CFileDialog dialog(FALSE, L"pdf", wide(TextOf(IDC_PLOT_FILE)).c_str(), 0,
                     L"PDF (*.pdf)|*.pdf|SVG (*.svg)|*.svg|PNG (*.png)|*.png||", this);
  if (const auto path = ask(dialog)) SetTextOf(IDC_PLOT_FILE, *path);
}

void PlotDialog::OnFit() {
  ::EnableWindow(::GetDlgItem(m_hWnd, IDC_PLOT_SCALE), !Checked(IDC_PLOT_FIT));
}

// --- print scale

ScaleDialog::ScaleDialog(drafting::Session& session) : CDialog(IDD_SCALE), session_(session) {}

BOOL ScaleDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  SetWindowText(wide(session_.say("打印比例", "Print Scale")).c_str());
  setText(m_hWnd, IDC_SCALE_LABEL, session_.say("打印比例 1:", "Print scale 1:"));
  setText(m_hWnd, IDOK, session_.say("确定", "OK"));
  setText(m_hWnd, IDCANCEL, session_.say("取消", "Cancel"));
  setText(m_hWnd, IDC_SCALE_VALUE, desktop::scaleText(session_).substr(2));
  ::SendDlgItemMessageW(m_hWnd, IDC_SCALE_VALUE, EM_SETSEL, 0, -1);
  ::SetFocus(::GetDlgItem(m_hWnd, IDC_SCALE_VALUE));
  return FALSE;
}

void ScaleDialog::OnOK() {
  wchar_t text[64] = L"";
  ::GetDlgItemTextW(m_hWnd, IDC_SCALE_VALUE, text, 64);
  const auto scale = desktop::parseScale(base::utf8FromWide(text));
  if (!scale) {
    MessageBox(wide(session_.say("需要正数。", "A number is needed.")).c_str(),
               std::wstring(desktop::kProgramTitle).c_str(), MB_ICONWARNING);
    return;
  }
  EndDialog(IDOK);
  const base::Status status = desktop::setScale(session_, *scale);
  if (!status) session_.printProblem(status);
}
