#pragma once

#include "media/parser/ParserState.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {

class Project;
class ScreenMetaData;
class VMFile;

/// A recording's "ScreenMetaData": each "ParameterFile" names the file of
/// one stream. When the element ends the metadata, complete, is set on the
/// media with `SetAttributeValueCmd`.
class ScreenMetaDataState : public ParserState {
 public:
  ScreenMetaDataState(Parser* parser, boost::shared_ptr<Project> project,
                      boost::shared_ptr<const VMFile> media);
  ParserState* startElement(const char* name, const char** atts) override;
  // Done at the end of the element rather than when the state is destroyed:
  // a command that fails must reach the caller, not escape a destructor.
  void endElement(const char* name) override;

 private:
  boost::shared_ptr<Project> project_;
  boost::shared_ptr<const VMFile> media_;
  boost::shared_ptr<ScreenMetaData> metaData_;
};

}  // namespace KelMediaLib
