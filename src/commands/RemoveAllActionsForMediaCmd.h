#pragma once

#include "commands/OrvMultiCommand.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace KelMediaLib {
class CommandHandler;
class Media;
}  // namespace KelMediaLib

namespace OrvMediaLib {

class ActionBin;

/// Removes every action that a media has in one bin, each by a
/// `RemoveActionCmd` of this group, in the bin's order; one undo brings them
/// all back. Which actions go is decided on the first run only.
class RemoveAllActionsForMediaCmd : public OrvMultiCommand {
 public:
  /// Throws `OrvException` on a null media or bin.
  static boost::shared_ptr<RemoveAllActionsForMediaCmd> create(
      boost::shared_ptr<const KelMediaLib::Media> media, boost::shared_ptr<const ActionBin> bin);

  void executeCommands(KelMediaLib::CommandHandler const* handler) override;
  /// A copy for the same media and bin that hasn't run; the caller owns it.
  RemoveAllActionsForMediaCmd* clone() const;
  /// "RemoveAllActionsForMediaCmd".
  std::string description() const;

  boost::shared_ptr<const KelMediaLib::Media> media() const { return media_; }
  boost::shared_ptr<const ActionBin> bin() const { return bin_; }

 private:
  RemoveAllActionsForMediaCmd(boost::shared_ptr<const KelMediaLib::Media> media,
                              boost::shared_ptr<const ActionBin> bin);
  RemoveAllActionsForMediaCmd(const RemoveAllActionsForMediaCmd& other) = default;

  boost::shared_ptr<const KelMediaLib::Media> media_;
  boost::shared_ptr<const ActionBin> bin_;
};

}  // namespace OrvMediaLib
