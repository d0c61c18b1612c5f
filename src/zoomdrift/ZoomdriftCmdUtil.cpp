#include "zoomdrift/ZoomdriftCmdUtil.h"

#include "actions/OrvException.h"
#include "core/Attribute.h"
#include "core/KelMediaLibException.h"
#include "core/ProjectEditRate.h"
#include "core/ThreadSafe.h"
#include "media/media/Transformer.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "values/Parameter.h"
#include "values/ParameterIterator.h"
#include "values/VectorParam.h"

#include <climits>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace ZoomdriftNS {

using KelMediaLib::Parameter;
using KelMediaLib::ScreenMetaData;
using KelMediaLib::VMFile;

namespace {

typedef boost::shared_ptr<const ScreenMetaData> MetaDataPtr;

// Toward zero, as a cast does; but metadata is outside input, so a value
// beyond the range stops at its end and NaN gives 0 instead of undefined
// behaviour.
int truncateToInt(double value) {
  if (!(value == value)) return 0;
  if (value >= 2147483647.0) return INT_MAX;
  if (value <= -2147483648.0) return INT_MIN;
  return static_cast<int>(value);
}

long long truncateToTime(double value) {
  if (!(value == value)) return 0;
  if (value >= 9223372036854775807.0) return LLONG_MAX;
  if (value <= -9223372036854775808.0) return LLONG_MIN;
  return static_cast<long long>(value);
}

long long roundToTime(double value) {
  if (!(std::fabs(value) < 9.2e18)) {
    throw OrvMediaLib::OrvException("zoomdrift: the time " + std::to_string(value) +
                                    " is beyond the time axis");
  }
  return std::llround(value);
}

MetaDataPtr metaDataOf(const VMFile& media) {
  // Attribute::value copies the pointer under the attribute's read lock.
  return media.screenMetaData()->value();
}

// Edit units a second of the media's project; metadata times are counted in
// them. A media whose project can't tell gets 30, the rate of recordings.
double timeScaleOf(const VMFile& media) {
  const boost::shared_ptr<const KelMediaLib::ThreadSafe> project = media.projectMutex().lock();
  const auto* rate = dynamic_cast<const KelMediaLib::ProjectEditRate*>(project.get());
  if (!rate) return 30.0;
  const KelMediaLib::EditRate editRate = rate->editRate();
  return static_cast<double>(editRate.numerator()) / static_cast<double>(editRate.denominator());
}

ZD_TIME_RECT genRecordingRegion(const VMFile& media) {
  ZD_TIME_RECT region = {0, {0, truncateToInt(media.width()), 0, truncateToInt(media.height())}};
  if (region.rect.right < 0) {
    region.rect.left = region.rect.right;
    region.rect.right = 0;
  }
  if (region.rect.top > region.rect.bottom) std::swap(region.rect.top, region.rect.bottom);
  return region;
}

// Corner by corner: the far edges are the float sums of position and extent.
ZD_TIME_RECT calcZDRect(long long time, const KelMediaLib::Rect<float>& rect, int /*height*/) {
  const float rightEdge = rect.x + rect.width;
  const float bottomEdge = rect.y + rect.height;
  ZD_TIME_RECT result = {time,
                         {truncateToInt(rect.x), truncateToInt(rightEdge), truncateToInt(rect.y),
                          truncateToInt(bottomEdge)}};
  if (result.rect.right < result.rect.left) std::swap(result.rect.left, result.rect.right);
  if (result.rect.bottom < result.rect.top) std::swap(result.rect.top, result.rect.bottom);
  return result;
}

double calcTargetWidth(const VMFile& media) {
  return media.transformer()->scale()->at(0)->valueAt(0.0) * static_cast<double>(media.width());
}

double calcTargetHeight(const VMFile& media) {
  return media.transformer()->scale()->at(1)->valueAt(0.0) * static_cast<double>(media.height());
}

// The metadata's coordinates already have their origin at the top left, so
// nothing is flipped: `height` is not needed.
void addCursorPoint(long long time, const KelMediaLib::Point& point, int /*height*/,
                    std::vector<ZD_MOUSE_LOCATION>& vector) {
  vector.push_back({time, truncateToInt(point.x), truncateToInt(point.y)});
}

// One record per set bit among the four that carry events, at the mask's
// time; higher bits mean nothing to the engine.
void addZDMouseAction(long long time, int value, std::vector<ZD_MOUSE_ACTION>& vector) {
  for (int i = 0; i < 4; ++i) {
    if (value & (1 << i)) vector.push_back({time, ZOOMDRIFT_EVENT_MAP[i]});
  }
}

void addZDRect(long long time, const KelMediaLib::Rect<float>& rect,
               std::vector<ZD_TIME_RECT>& vector, int height) {
  vector.push_back(calcZDRect(time, rect, height));
}

void addDirtyRects(long long time, const std::vector<KelMediaLib::Rect<float>>& rects, int height,
                   std::vector<ZD_TIME_RECT>& vector) {
  for (const KelMediaLib::Rect<float>& rect : rects)
    vector.push_back(calcZDRect(time, rect, height));
}

// Every key frame of `parameter` in time order, but the parameter's resting
// one (its default value at 0, there whenever no record landed at 0): it was
// never recorded, and a cursor at rest at (0, 0) would place clicks in the
// corner. A record of the default value at 0 carries nothing either. The
// iterator holds the project's read lock for the walk.
template <class T, class Append>
void walk(const Parameter<T>& parameter, Append append) {
  const KelMediaLib::ParameterIterator<T> end = parameter.end();
  for (KelMediaLib::ParameterIterator<T> it = parameter.begin(); it != end; ++it) {
    const std::pair<long long, T> entry = *it;
    if (entry.first != 0 || !(entry.second == T())) append(entry.first, entry.second);
  }
}

void genCursorActionVector(std::vector<ZD_MOUSE_ACTION>& vector, const ScreenMetaData& metaData) {
  walk(*metaData.cursorActionParam(),
       [&](long long time, int value) { addZDMouseAction(time, value, vector); });
}

void genCursorLocationVector(std::vector<ZD_MOUSE_LOCATION>& vector, const ScreenMetaData& metaData,
                             int height) {
  walk(*metaData.cursorLocationParam(), [&](long long time, const KelMediaLib::Point& point) {
    addCursorPoint(time, point, height, vector);
  });
}

void genForeWindowVector(std::vector<ZD_TIME_RECT>& vector, const ScreenMetaData& metaData,
                         int height) {
  walk(*metaData.frontWindowParam(), [&](long long time, const KelMediaLib::Rect<float>& rect) {
    addZDRect(time, rect, vector, height);
  });
}

void genDirtyRectsVector(std::vector<ZD_TIME_RECT>& vector, const ScreenMetaData& metaData,
                         int height) {
  walk(*metaData.dirtyRectsParam(),
       [&](long long time, const std::vector<KelMediaLib::Rect<float>>& rects) {
         addDirtyRects(time, rects, height, vector);
       });
}

void requireMedia(const boost::shared_ptr<const VMFile>& media, const char* operation) {
  if (!media) {
    throw OrvMediaLib::OrvException(std::string("ZoomdriftCmdUtil::") + operation +
                                    ": no media given");
  }
}

}  // namespace

void ZoomdriftCmdUtil::assertZoomdriftPossible(boost::shared_ptr<const VMFile> media) {
  requireMedia(media, "assertZoomdriftPossible");
  if (!metaDataOf(*media)) {
    throw KelMediaLib::KelMediaLibException(
        "attempting to apply zoomdrift to a media without screen meta data");
  }
}

void ZoomdriftCmdUtil::genZoomdriftParams(boost::shared_ptr<const VMFile> media, Params* params,
                                          long long fadeDuration) {
  requireMedia(media, "genZoomdriftParams");
  if (!params) {
    throw OrvMediaLib::OrvException("ZoomdriftCmdUtil::genZoomdriftParams: no params given");
  }
  const MetaDataPtr metaData = metaDataOf(*media);
  params->setTargetWidth(truncateToInt(calcTargetWidth(*media)));
  params->setTargetHeight(truncateToInt(calcTargetHeight(*media)));
  params->setTimeScale(timeScaleOf(*media));
  const int height = truncateToInt(media->height());
  genForeWindowVector(params->foreWindows(), *metaData, height);
  genCursorActionVector(params->cursorActions(), *metaData);
  genCursorLocationVector(params->cursorLocations(), *metaData, height);
  genDirtyRectsVector(params->dirtyRects(), *metaData, height);
  params->recordingRegions().push_back(genRecordingRegion(*media));
  params->setFadeDuration(recordingTime(*media, fadeDuration));
  const KelMediaLib::Range<double> shown = media->sourceRange();
  params->setClipInterval(truncateToTime(shown.start),
                          truncateToTime(shown.start + shown.duration));
}

double ZoomdriftCmdUtil::calcLeftTrim(ZD_TIME_RECT const& rect, double, double) {
  return static_cast<double>(rect.rect.left);
}

double ZoomdriftCmdUtil::calcTopTrim(ZD_TIME_RECT const& rect, double, double) {
  return static_cast<double>(rect.rect.top);
}

double ZoomdriftCmdUtil::calcRightTrim(ZD_TIME_RECT const& rect, double width, double) {
  return width - static_cast<double>(rect.rect.right);
}

double ZoomdriftCmdUtil::calcBottomTrim(ZD_TIME_RECT const& rect, double, double height) {
  return height - static_cast<double>(rect.rect.bottom);
}

void ZoomdriftCmdUtil::calculateScaleTranslateWithRectangle(Rectangle const& rect,
                                                            float canvasWidth, float canvasHeight,
                                                            boost::shared_ptr<const VMFile> media,
                                                            double* scale, double* translation) {
  requireMedia(media, "calculateScaleTranslateWithRectangle");
  if (!scale || !translation) {
    throw OrvMediaLib::OrvException(
        "ZoomdriftCmdUtil::calculateScaleTranslateWithRectangle: no place for the results");
  }
  // 64 bits, so that the edges of any rectangle of ints subtract safely.
  const long long w = static_cast<long long>(rect.right) - rect.left;
  const long long h = static_cast<long long>(rect.bottom) - rect.top;
  const float mediaHeight = media->height();
  const float mediaWidth = media->width();
  // The rectangle's y axis points down, the canvas's up.
  const long long flippedTop = truncateToInt(mediaHeight - static_cast<float>(rect.bottom));
  const double sx = static_cast<double>(canvasWidth) / static_cast<double>(w);
  const double sy = static_cast<double>(canvasHeight) / static_cast<double>(h);
  const double s = sx <= sy ? sx : sy;
  scale[0] = s;
  scale[1] = s;
  scale[2] = 1.0;
  const double rectCentreX = static_cast<double>(w / 2 + rect.left);
  const double rectCentreY = static_cast<double>(h / 2 + flippedTop);
  const double mediaCentreX = static_cast<double>(mediaWidth * 0.5f);
  const double mediaCentreY = static_cast<double>(mediaHeight * 0.5f);
  translation[0] = (mediaCentreX - rectCentreX) * s;
  translation[1] = (mediaCentreY - rectCentreY) * s;
  translation[2] = 0.0;
}

long long ZoomdriftCmdUtil::editTime(const VMFile& media, long long recordingTime) {
  return roundToTime(media.recordingToEditTime(static_cast<double>(recordingTime)));
}

long long ZoomdriftCmdUtil::recordingTime(const VMFile& media, long long editTime) {
  // A recording time is the media's parameter time.
  return roundToTime(media.toParameterTime(static_cast<double>(editTime)));
}

}  // namespace ZoomdriftNS
