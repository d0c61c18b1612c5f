#pragma once

#include "values/Parameter.h"

#include <boost/shared_ptr.hpp>

namespace KelMediaLib {
class Command;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

/// Makes the commands that take a transition off one edge of a media, so
/// that the removing commands are written once for both edges.
class EdgeModRemoveCmdGenerator {
 public:
  virtual ~EdgeModRemoveCmdGenerator();

  /// A command that takes the modifications of `parameter` (null: those
  /// without a parameter) off the edge.
  virtual boost::shared_ptr<KelMediaLib::Command> removeEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) const = 0;
  /// A command that sets the edge's length back to zero; the length is read
  /// now, so make it just before it runs.
  virtual boost::shared_ptr<KelMediaLib::Command> trimEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media) const = 0;
};

/// The generator of the left edge (the media's start).
class LeftEdgeModRemoveCmdGenerator : public EdgeModRemoveCmdGenerator {
 public:
  boost::shared_ptr<KelMediaLib::Command> removeEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) const override;
  boost::shared_ptr<KelMediaLib::Command> trimEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media) const override;
};

/// The generator of the right edge (the media's end).
class RightEdgeModRemoveCmdGenerator : public EdgeModRemoveCmdGenerator {
 public:
  boost::shared_ptr<KelMediaLib::Command> removeEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media,
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter) const override;
  boost::shared_ptr<KelMediaLib::Command> trimEdgeModCmd(
      boost::shared_ptr<const KelMediaLib::Media> media) const override;
};

}  // namespace OrvMediaLib
