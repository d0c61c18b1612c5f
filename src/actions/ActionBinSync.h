#pragma once

#include "core/Observer.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace KelMediaLib {
class Media;
class Timeline;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// Drops from two bins the actions of media that have left a timeline. It
/// attaches itself to nothing: the application decides what tells it of a
/// change of the timeline.
class ActionBinSync : public KelMediaLib::Observer {
 public:
  /// Notes the media now on `timeline`. Throws `OrvException` on a null
  /// timeline or bin.
  ActionBinSync(boost::shared_ptr<const KelMediaLib::Timeline> timeline,
                boost::shared_ptr<ActionBin> firstBin, boost::shared_ptr<ActionBin> secondBin);

  /// Each media noted before and gone from the timeline now loses its
  /// entry in both bins; media that arrived change nothing.
  void observerUpdate() override;

 private:
  typedef std::vector<boost::shared_ptr<const KelMediaLib::Media>> MediaList;

  boost::shared_ptr<const KelMediaLib::Timeline> timeline_;
  boost::shared_ptr<ActionBin> firstBin_;
  boost::shared_ptr<ActionBin> secondBin_;
  boost::shared_ptr<MediaList> medias_;
};

}  // namespace OrvMediaLib
