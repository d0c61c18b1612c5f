#include "commands/AddActionCmd.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "commands/OrvCommandHandler.h"
#include "media/media/Media.h"
#include "values/Parameter.h"

#include <boost/pointer_cast.hpp>

#include <limits>

namespace OrvMediaLib {

using KelMediaLib::Media;
using KelMediaLib::Parameter;

boost::shared_ptr<AddActionCmd> AddActionCmd::create(boost::shared_ptr<const Media> media,
                                                     boost::shared_ptr<const ActionBin> bin,
                                                     const ActionDescription& description,
                                                     long long start, long long duration) {
  return boost::shared_ptr<AddActionCmd>(
      new AddActionCmd(media, bin, description, start, duration));
}

AddActionCmd::AddActionCmd(boost::shared_ptr<const Media> media,
                           boost::shared_ptr<const ActionBin> bin,
                           const ActionDescription& description, long long start,
                           long long duration)
    : media_(media), bin_(bin), description_(description), range_(start, duration) {
  if (!media_) {
    throw OrvException("AddActionCmd: no media given");
  }
}

long long AddActionCmd::calcEditTime(const Parameter<double>& parameter, long long time) {
  const long long previous = parameter.prevKeyFrameTime(time);
  if (previous != std::numeric_limits<long long>::min()) {
    return previous;
  }
  if (parameter.numKeyFrames() == 1) {
    return parameter.firstKeyFrameTime();
  }
  return parameter.nextKeyFrameTime(time);
}

void AddActionCmd::requireParameters() const {
  for (const ActionDescription::RangeDescription& range : description_) {
    if (!boost::dynamic_pointer_cast<Parameter<double>>(
            media_->parameterNamed(range.parameterName()))) {
      throw OrvException("AddActionCmd: the media has no parameter of doubles named \"" +
                         range.parameterName() + "\"");
    }
  }
}

void AddActionCmd::execute(KelMediaLib::CommandHandler*) {
  if (createdAction_) {
    throw OrvException("AddActionCmd: a command can't be executed a second time");
  }
  requireParameters();
  createdAction_ = orvCommandHandler()->addAction(media_, bin_, description_, range_);
}

void AddActionCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->removeAction(createdAction_);
}

void AddActionCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->addAction(bin_, createdAction_);
}

}  // namespace OrvMediaLib
