#include "clipbin/ZoomPicture.h"

#include "core/IOException.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <locale>
#include <sstream>

namespace OrvMediaLib {

namespace {

const double kScale = 0.5;
const double kMargin = 20;
const double kStripHeight = 40;
const char* const kColours[] = {"#d62728", "#2ca02c", "#9467bd", "#ff7f0e", "#17becf", "#8c564b"};

const char* colour(std::size_t index) {
  return kColours[index % (sizeof kColours / sizeof kColours[0])];
}

// The cursor's place at `time`: its last location at or before it, else its
// first.
bool cursorAt(const ZoomJob::Result& result, long long time, double* x, double* y) {
  if (result.cursorPath.empty()) {
    return false;
  }
  auto at = result.cursorPath.front();
  for (const auto& location : result.cursorPath) {
    if (location.time <= time) at = location;
  }
  *x = at.x;
  *y = at.y;
  return true;
}

// A file name as SVG text: it may hold what markup would take for its own.
std::string escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

}  // namespace

std::string ZoomPicture::svg(const ZoomJob::Result& result) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  const double frameWidth = result.width * kScale;
  const double frameHeight = result.height * kScale;
  const double stripTop = kMargin * 2 + frameHeight;
  const double width = frameWidth + 2 * kMargin;
  const double height = stripTop + kStripHeight + 2 * kMargin;
  const double seconds = std::max(result.seconds, 1e-9);
  const double rate =
      static_cast<double>(result.editRate.numerator()) / result.editRate.denominator();
  auto px = [](double v) { return kMargin + v * kScale; };
  auto atTime = [&](double s) { return kMargin + s / seconds * frameWidth; };

  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
      << "\" font-family=\"sans-serif\" font-size=\"11\">\n";
  out << "<title>Automatic zoom on " << escaped(result.screenFile) << "</title>\n";
  out << "<rect x=\"" << kMargin << "\" y=\"" << kMargin << "\" width=\"" << frameWidth
      << "\" height=\"" << frameHeight << "\" fill=\"#f4f4f4\" stroke=\"#000\"/>\n";

  out << "<polyline fill=\"none\" stroke=\"#1f77b4\" stroke-width=\"1\" points=\"";
  for (const auto& location : result.cursorPath) {
    out << px(location.x) << ',' << px(location.y) << ' ';
  }
  out << "\"/>\n";

  for (const auto& click : result.clicks) {
    double x = 0, y = 0;
    if (cursorAt(result, click.time, &x, &y)) {
      out << "<circle cx=\"" << px(x) << "\" cy=\"" << px(y)
          << "\" r=\"5\" fill=\"none\" stroke=\"#000\" stroke-width=\"2\"/>\n";
    }
  }

  for (std::size_t i = 0; i < result.zooms.size(); ++i) {
    const auto& rect = result.zooms[i].rect;
    out << "<rect x=\"" << px(rect.left) << "\" y=\"" << px(rect.top) << "\" width=\""
        << (rect.right - rect.left) * kScale << "\" height=\"" << (rect.bottom - rect.top) * kScale
        << "\" fill=\"none\" stroke=\"" << colour(i) << "\" stroke-width=\"2\"/>\n";
    out << "<text x=\"" << px(rect.left) + 3 << "\" y=\"" << px(rect.top) + 12 << "\" fill=\""
        << colour(i) << "\">" << i + 1 << "</text>\n";
  }

  // The timeline strip.
  out << "<rect x=\"" << kMargin << "\" y=\"" << stripTop << "\" width=\"" << frameWidth
      << "\" height=\"" << kStripHeight << "\" fill=\"#fff\" stroke=\"#000\"/>\n";
  for (int s = 0; s <= static_cast<int>(seconds); ++s) {
    out << "<line x1=\"" << atTime(s) << "\" y1=\"" << stripTop + kStripHeight << "\" x2=\""
        << atTime(s) << "\" y2=\"" << stripTop + kStripHeight + 5 << "\" stroke=\"#000\"/>\n";
    out << "<text x=\"" << atTime(s) - 3 << "\" y=\"" << stripTop + kStripHeight + 16 << "\">" << s
        << "</text>\n";
  }
  for (std::size_t i = 0; i < result.zooms.size(); ++i) {
    const auto& zoom = result.zooms[i];
    out << "<rect x=\"" << atTime(zoom.start) << "\" y=\"" << stripTop + 6 << "\" width=\""
        << std::max(1.0, atTime(zoom.end) - atTime(zoom.start)) << "\" height=\"18\" fill=\""
        << colour(i) << "\"/>\n";
    out << "<text x=\"" << atTime(zoom.start) << "\" y=\"" << stripTop + 36 << "\" fill=\""
        << colour(i) << "\">" << i + 1 << "</text>\n";
  }
  for (const auto& click : result.clicks) {
    const double x = atTime(click.time / rate);
    out << "<line x1=\"" << x << "\" y1=\"" << stripTop << "\" x2=\"" << x << "\" y2=\""
        << stripTop + kStripHeight << "\" stroke=\"#000\" stroke-dasharray=\"2,2\"/>\n";
  }
  out << "</svg>\n";
  return out.str();
}

void ZoomPicture::write(const ZoomJob::Result& result, const std::string& path) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << svg(result);
  out.close();
  if (!out) {
    throw KelMediaLib::IOException("can't write \"" + path + "\"");
  }
}

}  // namespace OrvMediaLib
