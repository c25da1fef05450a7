// Value chains: making, copying texts into them, freeing.
#include <cstdarg>
#include <cwchar>

#include "platform/acad_result.h"

namespace {

enum class Content { None, Real, Point, Short, Long, Text, Name, Unknown };

// The kind of value that a DXF group code carries.
Content contentOfGroup(int code) {
  if (code == -1 || code == -2) return Content::Name;
  if (code == -3 || code == -4) return code == -4 ? Content::Text : Content::None;
  if (code >= 0 && code <= 9) return Content::Text;
  if (code >= 10 && code <= 37) return Content::Point;
  if (code >= 38 && code <= 59) return Content::Real;
  if (code >= 60 && code <= 79) return Content::Short;
  if (code >= 90 && code <= 99) return Content::Long;
  if (code == 100 || code == 102 || code == 105) return Content::Text;
  if (code >= 1000 && code <= 1009) return Content::Text;
  if (code >= 1010 && code <= 1039) return Content::Point;
  if (code >= 1040 && code <= 1059) return Content::Real;
  if (code >= 1060 && code <= 1070) return Content::Short;
  if (code == 1071) return Content::Long;
  return Content::Unknown;
}

Content contentOf(int type) {
  switch (type) {
    case RTNONE:
    case RTVOID:
    case RTNIL:
    case RTT:
    case RTLB:
    case RTLE: return Content::None;
    case RTREAL: return Content::Real;
    case RTPOINT:
    case RT3DPOINT: return Content::Point;
    case RTSHORT: return Content::Short;
    case RTLONG: return Content::Long;
    case RTSTR:
    case RTDXF0: return Content::Text;
    case RTENAME:
    case RTPICKS: return Content::Name;
    default: return contentOfGroup(type);
  }
}

}  // namespace

resbuf* acutNewRb(int type) {
  if (contentOf(type) == Content::Unknown) return nullptr;
  auto* link = new resbuf{};
  link->restype = static_cast<std::int16_t>(type == RTDXF0 ? 0 : type);
  return link;
}

wchar_t* acutNewString(const wchar_t* text) {
  const std::size_t length = std::wcslen(text);
  auto* copy = new wchar_t[length + 1];
  std::wmemcpy(copy, text, length + 1);
  return copy;
}

int acutRelRb(resbuf* chain) {
  while (chain) {
    resbuf* next = chain->rbnext;
    if (contentOf(chain->restype) == Content::Text) delete[] chain->resval.rstring;
    delete chain;
    chain = next;
  }
  return RTNORM;
}

resbuf* acutBuildList(int type, ...) {
  resbuf* first = nullptr;
  resbuf** end = &first;
  std::va_list values;
  va_start(values, type);
  for (; type != RTNONE && type != 0; type = va_arg(values, int)) {
    resbuf* link = acutNewRb(type);
    if (!link) {
      acutRelRb(first);
      first = nullptr;
      break;
    }
    *end = link;
    end = &link->rbnext;
    switch (contentOf(type)) {
      case Content::Real: link->resval.rreal = va_arg(values, double); break;
      case Content::Short:
        link->resval.rint = static_cast<std::int16_t>(va_arg(values, int));
        break;
      case Content::Long: link->resval.rlong = va_arg(values, int); break;
      case Content::Text:
        link->resval.rstring = acutNewString(va_arg(values, const wchar_t*));
        break;
      case Content::Point: {
        const auto* point = va_arg(values, const double*);
        for (int i = 0; i < 3; ++i) link->resval.rpoint[i] = point[i];
        break;
      }
      case Content::Name: {
        const auto* name = va_arg(values, const std::intptr_t*);
        for (int i = 0; i < 2; ++i) link->resval.rlname[i] = name[i];
        break;
      }
      default: break;
    }
  }
  va_end(values);
  return first;
}
