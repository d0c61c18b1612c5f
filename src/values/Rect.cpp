#include "values/Rect.h"

namespace KelMediaLib {

std::ostream& operator<<(std::ostream& out, const std::vector<Rect<float>>& rects) {
  out << '[';
  for (std::vector<Rect<float>>::size_type i = 0; i < rects.size(); ++i) {
    if (i != 0) {
      out << ',';
    }
    out << rects[i];
  }
  return out << ']';
}

std::istream& operator>>(std::istream& in, std::vector<Rect<float>>& rects) {
  if (!readSeparator(in, '[')) {
    return in;
  }
  std::vector<Rect<float>> result;
  if (in.peek() == ']') {
    in.get();
  } else {
    for (;;) {
      Rect<float> rect;
      if (!(in >> rect)) {
        return in;
      }
      result.push_back(rect);
      char separator = 0;
      if (!(in >> separator)) {
        return in;
      }
      if (separator == ']') {
        break;
      }
      if (separator != ',') {
        in.setstate(std::ios::failbit);
        return in;
      }
    }
  }
  rects.swap(result);
  return in;
}

void writeXMLValue(std::ostream& out, const std::vector<Rect<float>>& rects) {
  out << rects;
}

}  // namespace KelMediaLib
