#pragma once

#include "commands/AddTransitionCmd.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace OrvMediaLib {

/// Puts a transition on the left edge of a media (its start), with the
/// left functions of the description.
class AddLeftTransitionCmd : public AddTransitionCmd {
 public:
  /// Throws `OrvException` on a null media or a negative length.
  static boost::shared_ptr<AddLeftTransitionCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media, const TransitionDescription& description,
      long long length);

  AddLeftTransitionCmd* clone() const override;
  /// "AddLeftTransitionCmd", also the element name in a trace.
  std::string description() const override;
  void xmlName(Options& options) const override;

 protected:
  AddLeftTransitionCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                       const TransitionDescription& description, long long length);

  void setTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media,
                           long long length) override;
  void addEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media,
                  const KelMediaLib::EdgeModification& modification) override;
  bool removePreviousEdgeMod(boost::shared_ptr<const KelMediaLib::Media> media) override;
  bool shouldSetTransitionLength(boost::shared_ptr<const KelMediaLib::Media> media) override;
  KelMediaLib::EdgeModification edgeModForParameter(
      boost::shared_ptr<const KelMediaLib::Parameter<double>> parameter,
      const ModifierDescription& modifier) override;
};

}  // namespace OrvMediaLib
