// Run-time classes.
#include "platform/framework_objects.h"

CObject* CRuntimeClass::CreateObject() const {
  return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  for (const CRuntimeClass* one = this; one; one = one->m_pBaseClass) {
    if (one == base) return true;
  }
  return false;
}

CRuntimeClass* CObject::GetThisClass() {
  static CRuntimeClass record = {"CObject", static_cast<int>(sizeof(CObject)), nullptr, nullptr};
  return &record;
}

CRuntimeClass* CObject::GetRuntimeClass() const { return GetThisClass(); }
