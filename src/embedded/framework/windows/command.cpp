// Command targets: finding the handler of a command, bringing up to date what stands for one.
#include "platform/framework_command.h"
#include "platform/framework_menu.h"
#include "platform/framework_message_map.h"
#include "platform/framework_window.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
  static const AFX_MSGMAP map = {nullptr, entries};
  return &map;
}
const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
  for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->base ? map->base() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->nMessage != 0; ++entry) {
      if (!entry->command || entry->nCode != code) continue;
      if (id < entry->nID || id > entry->nLastID) continue;
      if (info) {
        info->pTarget = this;
      } else {
        entry->command(*this, id, extra);
      }
      return TRUE;
    }
  }
  return FALSE;
}

void CCmdUI::Enable(BOOL on) {
  m_bEnableChanged = TRUE;
  if (m_pMenu) m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
}

void CCmdUI::SetCheck(int check) {
  if (m_pMenu)
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(const wchar_t* text) {
  if (m_pMenu) {
    const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & (MF_GRAYED | MF_CHECKED);
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | state, m_nID, text);
  } else if (m_pOther) {
    m_pOther->SetWindowText(text);
  }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler) {
  m_bEnableChanged = FALSE;
  const BOOL updated = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
  if (disableIfNoHandler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info;
    Enable(target->OnCmdMsg(m_nID, CN_COMMAND, nullptr, &info));
  }
  return updated;
}
