#include "media/parser/states/ScreenMetaDataState.h"

#include "core/ParserException.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/parser/NullState.h"
#include "media/project/Project.h"
#include "values/SetAttributeValueCmd.h"

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>

#include <cstring>

namespace KelMediaLib {

namespace {

// A recording's metadata files lie beside its video. When the recording has
// moved (the missing-file handler answered where), the written paths name
// the old place: a file gone from there is looked for beside the video.
std::string besideTheVideo(const std::string& written, const VMFile& media) {
  namespace fs = boost::filesystem;
  boost::system::error_code error;
  if (fs::exists(written, error)) {
    return written;
  }
  const fs::path beside = fs::path(media.fileName()).parent_path() / fs::path(written).filename();
  return fs::exists(beside, error) ? beside.string() : written;
}

}  // namespace

ScreenMetaDataState::ScreenMetaDataState(Parser* parser, boost::shared_ptr<Project> project,
                                         boost::shared_ptr<const VMFile> media)
    : ParserState(parser),
      project_(std::move(project)),
      media_(std::move(media)),
      metaData_(ScreenMetaData::create(project_, media_, project_)) {}

ParserState* ScreenMetaDataState::startElement(const char* name, const char** atts) {
  if (std::strcmp(name, "ParameterFile") != 0) {
    throwUnexpectedName(name, "ScreenMetaData State");
  }
  AttributeMap map;
  genMap("ParameterFile State", "filename paramName", "", atts, map);
  const std::string& paramName = map["paramName"];
  const std::string fileName = besideTheVideo(map["filename"], *media_);
  if (paramName == "topmostWindowCoordinates") {
    metaData_->setFrontWindowFile(fileName);
  } else if (paramName == "cursorLocation") {
    metaData_->setCursorLocationFile(fileName);
  } else if (paramName == "cursorAction") {
    metaData_->setCursorActionFile(fileName);
  } else if (paramName == "dirtyRects") {
    metaData_->setDirtyRectsFile(fileName);
  } else {
    throw ParserException("unrecognized screen meta data parameter:" + paramName, 0, 0);
  }
  return new NullState(parser());
}

void ScreenMetaDataState::endElement(const char*) {
  typedef boost::shared_ptr<const ScreenMetaData> Value;
  project_->execute(
      boost::make_shared<SetAttributeValueCmd<Value>>(media_->screenMetaData(), Value(metaData_)));
}

}  // namespace KelMediaLib
