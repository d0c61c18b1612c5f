#include "commands/AddParameterRangeCmd.h"

#include "actions/Action.h"
#include "actions/OrvException.h"
#include "actions/ParameterRange.h"
#include "commands/AddActionCmd.h"
#include "commands/OrvCommandHandler.h"
#include "values/Parameter.h"

#include <boost/pointer_cast.hpp>

namespace OrvMediaLib {

boost::shared_ptr<AddParameterRangeCmd> AddParameterRangeCmd::create(
    boost::shared_ptr<const Action> action, boost::shared_ptr<const ParameterRange> range) {
  return boost::shared_ptr<AddParameterRangeCmd>(new AddParameterRangeCmd(action, range));
}

AddParameterRangeCmd::AddParameterRangeCmd(boost::shared_ptr<const Action> action,
                                           boost::shared_ptr<const ParameterRange> range)
    : action_(action), range_(range), valueBefore_(0.0), valueAfter_(0.0) {
  if (!action_) {
    throw OrvException("AddParameterRangeCmd: no action given");
  }
  if (!range_) {
    throw OrvException("AddParameterRangeCmd: no parameter range given");
  }
}

void AddParameterRangeCmd::execute(KelMediaLib::CommandHandler*) {
  // The command writes values back on undo and redo: the parameter is the
  // model's, edited here in the command's turn.
  parameter_ = boost::const_pointer_cast<KelMediaLib::Parameter<double>>(range_->parameter());
  timeRange_ = range_->timeRange();
  valueBefore_ = parameter_->valueAt(static_cast<double>(action_->timeRange().start));
  orvCommandHandler()->addParameterRange(action_, range_);
  valueAfter_ = parameter_->valueAt(static_cast<double>(action_->timeRange().start));
}

void AddParameterRangeCmd::unexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->removeParameterRange(action_, parameter_, timeRange_);
  parameter_->setKeyFrameValue(AddActionCmd::calcEditTime(*parameter_, action_->timeRange().start),
                               valueBefore_);
}

void AddParameterRangeCmd::reexecute(KelMediaLib::CommandHandler*) {
  orvCommandHandler()->addParameterRange(action_, range_);
  parameter_->setKeyFrameValue(action_->timeRange().start, valueAfter_);
}

}  // namespace OrvMediaLib
