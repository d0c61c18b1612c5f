#pragma once

#include "commands/OrvCommandImpl.h"
#include "values/Range.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
template <class T>
class Parameter;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class Action;
class ParameterRange;

/// Adds a parameter range (the very object) to an action in a bin, with its
/// key frames. Undo takes it off and writes back the value that the parameter
/// had at the action's start before; redo adds it again and writes the value
/// that it had just after. Times are the parameters' axis throughout.
class AddParameterRangeCmd : public OrvCommandImpl {
 public:
  /// Throws `OrvException` on a null action or range.
  static boost::shared_ptr<AddParameterRangeCmd> create(
      boost::shared_ptr<const Action> action, boost::shared_ptr<const ParameterRange> range);

  void execute(KelMediaLib::CommandHandler* handler) override;
  void unexecute(KelMediaLib::CommandHandler* handler) override;
  void reexecute(KelMediaLib::CommandHandler* handler) override;

  boost::shared_ptr<const Action> action() const { return action_; }
  boost::shared_ptr<const ParameterRange> range() const { return range_; }

 private:
  AddParameterRangeCmd(boost::shared_ptr<const Action> action,
                       boost::shared_ptr<const ParameterRange> range);

  boost::shared_ptr<const Action> action_;
  boost::shared_ptr<const ParameterRange> range_;
  boost::shared_ptr<KelMediaLib::Parameter<double>> parameter_;
  KelMediaLib::Range<long long> timeRange_;
  double valueBefore_;
  double valueAfter_;
};

}  // namespace OrvMediaLib
