#include "media/metadata/ScreenMetaData.h"

#include "core/EditRateConversion.h"
#include "core/KelMediaLibException.h"
#include "core/ProjectEditRate.h"
#include "core/XMLText.h"
#include "media/media/FileRepresentation.h"

#include <boost/filesystem.hpp>

#include <charconv>
#include <cmath>
#include <fstream>
#include <ostream>

namespace KelMediaLib {

namespace {

const char* const frontWindowName = "topmostWindowCoordinates";
const char* const cursorLocationName = "cursorLocation";
const char* const cursorActionName = "cursorAction";
const char* const dirtyRectsName = "dirtyRects";

typedef std::vector<std::string> Tokens;

bool readNumber(const std::string& token, double& value) {
  const char* end = token.data() + token.size();
  const auto result = std::from_chars(token.data(), end, value);
  return result.ec == std::errc() && result.ptr == end && std::isfinite(value);
}

// Read as a float directly: through a double, a number could round twice,
// and the largest floats (up to FLT_MAX) would not survive a range check
// made in double.
bool readFloat(const std::string& token, float& value) {
  const char* end = token.data() + token.size();
  const auto result = std::from_chars(token.data(), end, value);
  return result.ec == std::errc() && result.ptr == end && std::isfinite(value);
}

bool readWhole(const std::string& token, int& value) {
  const char* end = token.data() + token.size();
  const auto result = std::from_chars(token.data(), end, value);
  return result.ec == std::errc() && result.ptr == end && value >= 0;
}

// Reads four numbers from `tokens` at `at` as x, y, width, height.
bool readRect(const Tokens& tokens, std::size_t at, Rect<float>& rect) {
  return readFloat(tokens[at], rect.x) && readFloat(tokens[at + 1], rect.y) &&
         readFloat(tokens[at + 2], rect.width) && readFloat(tokens[at + 3], rect.height);
}

bool parseFrontWindow(const Tokens& values, Rect<float>& rect) {
  return values.size() == 4 && readRect(values, 0, rect);
}

bool parseCursorLocation(const Tokens& values, Point& point) {
  point = Point();
  return values.size() == 2 && readNumber(values[0], point.x) && readNumber(values[1], point.y);
}

bool parseCursorAction(const Tokens& values, int& mask) {
  return values.size() == 1 && readWhole(values[0], mask);
}

bool parseDirtyRects(const Tokens& values, std::vector<Rect<float>>& rects) {
  int count = 0;
  if (values.empty() || !readWhole(values[0], count) ||
      values.size() != 1 + 4 * static_cast<std::size_t>(count)) {
    return false;
  }
  rects.assign(static_cast<std::size_t>(count), Rect<float>());
  for (int i = 0; i < count; ++i) {
    if (!readRect(values, 1 + 4 * static_cast<std::size_t>(i), rects[i])) {
      return false;
    }
  }
  return true;
}

Tokens split(const std::string& line) {
  Tokens tokens;
  std::size_t at = 0;
  while (true) {
    at = line.find_first_not_of(" \t\r\f\v", at);
    if (at == std::string::npos) {
      return tokens;
    }
    const std::size_t end = line.find_first_of(" \t\r\f\v", at);
    tokens.push_back(line.substr(at, end == std::string::npos ? std::string::npos : end - at));
    at = end;
  }
}

// Reads every record of one file into a new parameter named `name`; the
// parameter keeps its resting key frame unless a record lands at time 0.
template <class T, class Parse>
boost::shared_ptr<Parameter<T>> readFile(const std::string& fileName, const std::string& path,
                                         const boost::weak_ptr<const ThreadSafe>& project,
                                         const char* name, const T& defaultValue,
                                         const EditRate& rate, const char* form, Parse parse,
                                         bool& anyRecord) {
  // A device or a pipe opens like a file but may never end (a project that
  // names /dev/zero would fill the memory with one line) or never answer.
  boost::system::error_code error;
  const boost::filesystem::file_status status = boost::filesystem::status(path, error);
  if (boost::filesystem::exists(status) && !boost::filesystem::is_regular_file(status)) {
    throw KelMediaLibException("screen metadata: \"" + fileName + "\" isn't a regular file (" +
                               name + ")");
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    throw KelMediaLibException("screen metadata: can't read the file \"" + fileName + "\" (" +
                               name + ")");
  }
  const boost::shared_ptr<Parameter<T>> parameter =
      Parameter<T>::create(project, name, defaultValue);
  anyRecord = false;
  std::string line;
  for (unsigned long number = 1; std::getline(in, line); ++number) {
    if (number == 1 && line.compare(0, 3, "\xEF\xBB\xBF") == 0) {
      line.erase(0, 3);
    }
    const std::size_t comment = line.find('#');
    if (comment != std::string::npos) {
      line.erase(comment);
    }
    Tokens tokens = split(line);
    if (tokens.empty()) {
      continue;
    }
    const std::string where =
        "screen metadata: \"" + fileName + "\", line " + std::to_string(number) + ": ";
    double seconds = 0;
    T value = defaultValue;
    const bool timed = readNumber(tokens[0], seconds) && seconds >= 0;
    tokens.erase(tokens.begin());
    if (!timed || !parse(tokens, value)) {
      throw KelMediaLibException(where + "a " + name + " record is \"" + form +
                                 "\" (seconds 0 or more, then numbers), not \"" + line + "\"");
    }
    long long time = 0;
    try {
      time = secondsToEditUnits(seconds, rate);
    } catch (const KelMediaLibException& e) {
      throw KelMediaLibException(where + e.what());
    }
    parameter->addKeyFrame(time, value);
    anyRecord = true;
  }
  if (in.bad()) {
    throw KelMediaLibException("screen metadata: reading the file \"" + fileName + "\" failed");
  }
  return parameter;
}

}  // namespace

boost::shared_ptr<ScreenMetaData> ScreenMetaData::create(
    boost::weak_ptr<const ThreadSafe> project, boost::weak_ptr<const FileRepresentation> file,
    boost::weak_ptr<const ProjectEditRate> editRate) {
  return boost::shared_ptr<ScreenMetaData>(new ScreenMetaData(project, file, editRate));
}

ScreenMetaData::ScreenMetaData(boost::weak_ptr<const ThreadSafe> project,
                               boost::weak_ptr<const FileRepresentation> file,
                               boost::weak_ptr<const ProjectEditRate> editRate)
    : project_(project),
      file_(file),
      editRate_(editRate),
      frontWindow_(Parameter<Rect<float>>::create(project, frontWindowName, Rect<float>())),
      cursorLocation_(Parameter<Point>::create(project, cursorLocationName, Point())),
      cursorAction_(Parameter<int>::create(project, cursorActionName, 0)),
      dirtyRects_(Parameter<std::vector<Rect<float>>>::create(project, dirtyRectsName,
                                                              std::vector<Rect<float>>())),
      frontWindowContent_(false),
      cursorLocationContent_(false),
      cursorActionContent_(false),
      dirtyRectsContent_(false) {}

ScreenMetaData::~ScreenMetaData() = default;

boost::shared_ptr<const Parameter<Rect<float>>> ScreenMetaData::frontWindowParam() const {
  return frontWindow_;
}

boost::shared_ptr<const Parameter<Point>> ScreenMetaData::cursorLocationParam() const {
  return cursorLocation_;
}

boost::shared_ptr<const Parameter<int>> ScreenMetaData::cursorActionParam() const {
  return cursorAction_;
}

boost::shared_ptr<const Parameter<std::vector<Rect<float>>>> ScreenMetaData::dirtyRectsParam()
    const {
  return dirtyRects_;
}

EditRate ScreenMetaData::editRate() const {
  const boost::shared_ptr<const ProjectEditRate> rate = editRate_.lock();
  if (!rate) {
    throw KelMediaLibException(
        "screen metadata: the project whose edit rate converts the times is gone");
  }
  return rate->editRate();
}

std::string ScreenMetaData::pathOf(const std::string& fileName) const {
  const boost::filesystem::path given(fileName);
  const boost::shared_ptr<const FileRepresentation> file = file_.lock();
  if (given.is_absolute() || !file) {
    return fileName;
  }
  return (boost::filesystem::path(file->fileName()).parent_path() / given).string();
}

void ScreenMetaData::setFrontWindowFile(const std::string& fileName) {
  bool any = false;
  frontWindow_ = readFile(fileName, pathOf(fileName), project_, frontWindowName, Rect<float>(),
                          editRate(), "time x y width height", parseFrontWindow, any);
  frontWindowContent_ = any;
  frontWindowFile_ = fileName;
}

void ScreenMetaData::setCursorLocationFile(const std::string& fileName) {
  bool any = false;
  cursorLocation_ = readFile(fileName, pathOf(fileName), project_, cursorLocationName, Point(),
                             editRate(), "time x y", parseCursorLocation, any);
  cursorLocationContent_ = any;
  cursorLocationFile_ = fileName;
}

void ScreenMetaData::setCursorActionFile(const std::string& fileName) {
  bool any = false;
  cursorAction_ = readFile(fileName, pathOf(fileName), project_, cursorActionName, 0, editRate(),
                           "time mask", parseCursorAction, any);
  cursorActionContent_ = any;
  cursorActionFile_ = fileName;
}

void ScreenMetaData::setDirtyRectsFile(const std::string& fileName) {
  bool any = false;
  dirtyRects_ =
      readFile(fileName, pathOf(fileName), project_, dirtyRectsName, std::vector<Rect<float>>(),
               editRate(), "time n x1 y1 w1 h1 ...", parseDirtyRects, any);
  dirtyRectsContent_ = any;
  dirtyRectsFile_ = fileName;
}

bool ScreenMetaData::hasContent() const {
  return frontWindowContent_ || cursorLocationContent_ || cursorActionContent_ ||
         dirtyRectsContent_;
}

std::vector<std::pair<std::string, std::string>> ScreenMetaData::parameterFiles() const {
  const std::pair<const char*, const std::string*> all[] = {
      {frontWindowName, &frontWindowFile_},
      {cursorLocationName, &cursorLocationFile_},
      {cursorActionName, &cursorActionFile_},
      {dirtyRectsName, &dirtyRectsFile_}};
  std::vector<std::pair<std::string, std::string>> files;
  for (const auto& entry : all) {
    if (!entry.second->empty()) {
      files.emplace_back(entry.first, *entry.second);
    }
  }
  return files;
}

void ScreenMetaData::xmlName(Options& options) const {
  writeLiteral(options.out, "ScreenMetaData");
}

void ScreenMetaData::xmlBody(Options& options, int depth) const {
  for (const auto& file : parameterFiles()) {
    options.out << genIndent(depth) << "<ParameterFile";
    writeXMLAttribute(options.out, "filename", file.second);
    writeXMLAttribute(options.out, "paramName", file.first);
    writeLiteral(options.out, "/>\n");
  }
}

}  // namespace KelMediaLib
