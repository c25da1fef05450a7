// The instantiations of the family. All their members are exported from the module: they are what
// other modules link to.
#include "containers/array_2d.h"
#include "containers/dyn_p_array.h"
#include "containers/p_d_list.h"
#include "containers/p_x_list.h"
#include "platform/container_elements.h"

#ifdef _WIN32
#define TQ_EXPORT __declspec(dllexport)
#else
#define TQ_EXPORT __attribute__((visibility("default")))
#endif

// What each element type is instantiated with; a class comes after its base.
#define TQ_DYN_ARRAY(...)                               \
  template class TQ_EXPORT TqDynArrayBase<__VA_ARGS__>; \
  template class TQ_EXPORT TqDynArray<__VA_ARGS__>;
#define TQ_DYN_P_ARRAY(T) \
  TQ_DYN_ARRAY(T*)        \
  template class TQ_EXPORT TqDynPArray<T>;
#define TQ_ARRAY(T)                              \
  template class TQ_EXPORT TqArray<T>;           \
  template class TQ_EXPORT TqArray<TqArray<T> >; \
  template class TQ_EXPORT Tq2dArray<T>;
#define TQ_LIST_ALONE(T)                   \
  template struct TQ_EXPORT TqListNode<T>; \
  template class TQ_EXPORT TqList<T>;
#define TQ_D_LIST(T)                        \
  TQ_LIST_ALONE(T)                          \
  template struct TQ_EXPORT TqDListNode<T>; \
  template class TQ_EXPORT TqDList<T>;
#define TQ_P_D_LIST(T)                         \
  template class TQ_EXPORT TqDynArrayBase<T*>; \
  TQ_D_LIST(T*)                                \
  template class TQ_EXPORT TqPDList<T>;
#define TQ_P_X_LIST(T)                         \
  template class TQ_EXPORT TqDynArrayBase<T*>; \
  TQ_D_LIST(T*)                                \
  TQ_DYN_ARRAY(TqListNode<T*>*)                \
  template class TQ_EXPORT TqXList<T*>;        \
  template class TQ_EXPORT TqPXList<T>;

// Arrays.
TQ_DYN_ARRAY(char)
TQ_DYN_ARRAY(double)
TQ_DYN_ARRAY(TqGePoint)
TQ_DYN_ARRAY(TqGeExtent)
TQ_DYN_ARRAY(TqGeGridLineBJ)
TQ_DYN_P_ARRAY(TqDbGrip)
TQ_DYN_P_ARRAY(TqDbGripDim)
TQ_DYN_P_ARRAY(TqDynArrayStream)
TQ_DYN_P_ARRAY(TqGeGridSegBJ)
TQ_ARRAY(TqGeGridCellBJ)
TQ_ARRAY(TqGeGridNodeBJ)

// Lists of values, and of pointers that belong to nobody.
template class TQ_EXPORT TqDynArrayBase<int>;
template class TQ_EXPORT TqDynArrayBase<TqGeGridNodeBJ>;
template class TQ_EXPORT TqDynArrayBase<TqGePtQuadTree2d*>;
TQ_LIST_ALONE(int)
TQ_LIST_ALONE(TqGePtQuadTree2d*)
TQ_D_LIST(TqGePoint)
TQ_D_LIST(TqGeGridNodeBJ)

// Lists that own. An arc is in both kinds.
TQ_P_D_LIST(TqDbReactorAndData)
TQ_P_D_LIST(TqDbWallGraphEdge)
TQ_P_D_LIST(TqDbWallGraphPath)
TQ_P_D_LIST(TqGeCurveMeshCell)
TQ_P_D_LIST(TqGeCurveMeshCell3d)
TQ_P_D_LIST(TqGeCurveMeshEdge)
TQ_P_D_LIST(TqGeCurveMeshEdge3d)
TQ_P_D_LIST(TqGeFace)
TQ_P_D_LIST(TqGeMLine2d)
TQ_P_D_LIST(TqGiObject)
TQ_P_X_LIST(TqDbWallGraphNode)
TQ_P_X_LIST(TqGeCurveMeshNode)
TQ_P_X_LIST(TqGeCurveMeshNode3d)
TQ_P_X_LIST(TqGraphArc)
template class TQ_EXPORT TqPDList<TqGraphArc>;
TQ_P_X_LIST(TqGraphNode)
