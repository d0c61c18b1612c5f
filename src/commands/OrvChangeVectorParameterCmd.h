#pragma once

#include "commands/OrvMultiCommand.h"
#include "values/Point.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class CommandHandler;
class Parametric;
class VectorParam;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// A local edit of a vector parameter by a delta of three components: one
/// `OrvChangeParameterCmd::createWithDelta` member per component x, y, z
/// (dimensions 0, 1, 2) that isn't zero. A NaN component counts as a change.
/// Further dimensions of the vector are left alone. `time` is on the
/// parametric's own axis.
class OrvChangeVectorParameterCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null parametric or vector, and on a null bin
  /// (the members need it).
  static boost::shared_ptr<OrvChangeVectorParameterCmd> createWithDelta(
      boost::shared_ptr<const KelMediaLib::Parametric> parametric,
      boost::shared_ptr<const KelMediaLib::VectorParam> vector,
      boost::shared_ptr<const ActionBin> bin, long long time, const KelMediaLib::Point& delta);

  /// Throws `KelMediaLibException` for a changed component that the vector
  /// has no dimension for.
  void executeCommands(KelMediaLib::CommandHandler const* handler) override;

 private:
  OrvChangeVectorParameterCmd(boost::shared_ptr<const KelMediaLib::Parametric> parametric,
                              boost::shared_ptr<const KelMediaLib::VectorParam> vector,
                              boost::shared_ptr<const ActionBin> bin, long long time,
                              const KelMediaLib::Point& delta);

  boost::shared_ptr<const KelMediaLib::Parametric> parametric_;
  boost::shared_ptr<const KelMediaLib::VectorParam> vector_;
  boost::shared_ptr<const ActionBin> bin_;
  long long time_;
  KelMediaLib::Point delta_;
};

}  // namespace OrvMediaLib
