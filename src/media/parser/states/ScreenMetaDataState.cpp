#include "media/parser/states/ScreenMetaDataState.h"

#include "core/ParserException.h"
#include "media/media/VMFile.h"
#include "media/metadata/ScreenMetaData.h"
#include "media/parser/NullState.h"
#include "media/project/Project.h"
#include "values/SetAttributeValueCmd.h"

#include <boost/make_shared.hpp>

#include <cstring>

namespace KelMediaLib {

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
  const std::string& fileName = map["filename"];
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
