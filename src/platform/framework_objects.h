// Run-time classes: objects that know the name and the base of their class, and classes whose
// objects can be made from that knowledge alone.
#pragma once

class CObject;

// One static record per class; nobody owns or frees it.
struct CRuntimeClass {
  const char* m_lpszClassName;
  int m_nObjectSize;                // bytes
  CObject* (*m_pfnCreateObject)();  // null: the class can't be made dynamically
  CRuntimeClass* m_pBaseClass;      // null for CObject alone

  // A new object, the caller's; null when the class can't be made dynamically.
  CObject* CreateObject() const;
  bool IsDerivedFrom(const CRuntimeClass* base) const;  // a class is derived from itself
};

class CObject {
 public:
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
  virtual ~CObject() = default;

  virtual CRuntimeClass* GetRuntimeClass() const;
  static CRuntimeClass* GetThisClass();
  bool IsKindOf(const CRuntimeClass* other) const {
    return GetRuntimeClass()->IsDerivedFrom(other);
  }

 protected:
  CObject() = default;
};

// Class names take no parentheses. NOLINTBEGIN(bugprone-macro-parentheses)
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

// Inside of a class: it has a run-time class. The second form also makes its objects dynamically,
// for which it needs a constructor without arguments.
#define DECLARE_DYNAMIC(class_name)     \
 public:                                \
  static CRuntimeClass* GetThisClass(); \
  CRuntimeClass* GetRuntimeClass() const override;
#define DECLARE_DYNCREATE(class_name) \
  DECLARE_DYNAMIC(class_name)         \
  static CObject* CreateObject();

// In one source file, for each class with the declaration.
#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, create)                             \
  CRuntimeClass* class_name::GetThisClass() {                                                   \
    static CRuntimeClass record = {#class_name, static_cast<int>(sizeof(class_name)), (create), \
                                   RUNTIME_CLASS(base_class_name)};                             \
    return &record;                                                                             \
  }                                                                                             \
  CRuntimeClass* class_name::GetRuntimeClass() const { return GetThisClass(); }
#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)
#define IMPLEMENT_DYNCREATE(class_name, base_class_name)         \
  CObject* class_name::CreateObject() { return new class_name; } \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, &class_name::CreateObject)
// NOLINTEND(bugprone-macro-parentheses)
