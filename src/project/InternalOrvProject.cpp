#include "project/InternalOrvProject.h"

#include "actions/ActionBin.h"
#include "actions/ActionGraveyard.h"
#include "actions/OrvException.h"
#include "commands/OrvCommand.h"
#include "commands/OrvCommandExecutor.h"
#include "core/XMLText.h"
#include "edge/EdgeTransitionBin.h"
#include "media/media/Media.h"
#include "media/project/InternalProject.h"
#include "media/project/ProjectWriter.h"
#include "project/ProjectSupport.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include <string>
#include <utility>

// The facade: construction, the history, the bins, and the timeline edits
// that pass straight to the inner project. Action operations and the media
// lifecycle have files of their own.

namespace OrvMediaLib {

using KelMediaLib::InternalProject;
using KelMediaLib::Media;
using projectsupport::require;

// Construction.

InternalOrvProject::InternalOrvProject(boost::shared_ptr<InternalProject> project)
    : project_(std::move(project)),
      actionBin_(ActionBin::create()),
      zdActionBin_(ActionBin::create()),
      videoEdgeTransitionBin_(EdgeTransitionBin::create()),
      audioEdgeTransitionBin_(EdgeTransitionBin::create()),
      graveyard_(boost::make_shared<ActionGraveyard>()),
      audioActionBin_(ActionBin::create()) {
  project_->setCommandHandler(static_cast<KelMediaLib::CommandHandler*>(this));
}

boost::shared_ptr<InternalOrvProject> InternalOrvProject::create(unsigned int numerator,
                                                                 unsigned int denominator) {
  const KelMediaLib::EditRate editRate(numerator, denominator);
  return boost::shared_ptr<InternalOrvProject>(
      new InternalOrvProject(InternalProject::create(editRate)));
}

boost::shared_ptr<InternalOrvProject> InternalOrvProject::create(
    boost::shared_ptr<KelMediaLib::Project> project) {
  boost::shared_ptr<InternalProject> inner = boost::dynamic_pointer_cast<InternalProject>(project);
  if (!inner) {
    throw OrvException("can only make a project around a project of the media model");
  }
  return boost::shared_ptr<InternalOrvProject>(new InternalOrvProject(std::move(inner)));
}

// The graveyard goes ahead of the bins whose actions it holds; the other
// members then go in reverse order of declaration, the inner project last.
InternalOrvProject::~InternalOrvProject() {
  graveyard_.reset();
}

// XML.

void InternalOrvProject::xmlName(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "OrvProject");
}

void InternalOrvProject::xmlAttributes(Options& options) const {
  KelMediaLib::writeLiteral(options.out, "version=\"1.0\"");
}

void InternalOrvProject::xmlBody(Options& options, int depth) const {
  // Through the writer: it checks what the file can't hold and reads the
  // inner project under its lock.
  KelMediaLib::ProjectWriter::writeElement(*project_, options, depth);
  actionBin_->toXML(options, depth, " name=\"actionBin\"");
  zdActionBin_->toXML(options, depth, " name=\"zdActionBin\"");
  audioActionBin_->toXML(options, depth, " name=\"audioActionBin\"");
}

// History and the whole project.

bool InternalOrvProject::execute(boost::shared_ptr<KelMediaLib::Command> command) {
  return project_->execute(command);
}

void InternalOrvProject::undo() {
  project_->undo();
}

void InternalOrvProject::redo() {
  project_->redo();
}

void InternalOrvProject::combineLastCommands() {
  project_->combineLastCommands();
}

void InternalOrvProject::combineNextCommand() {
  project_->combineNextCommand();
}

KelMediaLib::CommandHistoryState InternalOrvProject::commandState() const {
  return project_->commandState();
}

void InternalOrvProject::restoreCommandState(const KelMediaLib::CommandHistoryState& state) {
  project_->restoreCommandState(state);
}

void InternalOrvProject::attachCommandObserver(KelMediaLib::CommandObserver* observer) {
  project_->attachCommandObserver(observer);
}

void InternalOrvProject::detachCommandObserver(KelMediaLib::CommandObserver* observer) {
  project_->detachCommandObserver(observer);
}

boost::shared_ptr<const KelMediaLib::Timeline> InternalOrvProject::timeline() const {
  return project_->timeline();
}

boost::shared_ptr<const KelMediaLib::SourceBin> InternalOrvProject::sourceBin() const {
  return project_->sourceBin();
}

const KelMediaLib::CommandHistory& InternalOrvProject::commandHistory() const {
  return project_->commandHistory();
}

boost::shared_ptr<KelMediaLib::ClipBoard> InternalOrvProject::clipBoard() {
  return project_->clipBoard();
}

void InternalOrvProject::changeSourcesFile(boost::shared_ptr<const KelMediaLib::Source> source,
                                           const std::string& path) {
  project_->changeSourcesFile(source, path);
}

void InternalOrvProject::addSourceBinSentry(
    boost::shared_ptr<KelMediaLib::SourceBinSentry> sentry) {
  project_->addSourceBinSentry(sentry);
}

// The command keeps this project as its handler of action edits, also
// when it fails, so that undo and redo reach the project again.
bool InternalOrvProject::orvExecute(boost::shared_ptr<OrvCommand> command) {
  require(command, "orvExecute", "command");
  command->setOrvCommandHandler(static_cast<OrvCommandHandler*>(this));
  return execute(OrvCommandExecutor::create(command));
}

boost::shared_ptr<const ActionBin> InternalOrvProject::actionBin() const {
  return actionBin_;
}

boost::shared_ptr<const ActionBin> InternalOrvProject::zdActionBin() const {
  return zdActionBin_;
}

boost::shared_ptr<const ActionBin> InternalOrvProject::audioActionBin() const {
  return audioActionBin_;
}

boost::shared_ptr<EdgeTransitionBin> InternalOrvProject::videoEdgeTransitionBin() const {
  return videoEdgeTransitionBin_;
}

boost::shared_ptr<EdgeTransitionBin> InternalOrvProject::audioEdgeTransitionBin() const {
  return audioEdgeTransitionBin_;
}

KelMediaLib::ReadWriteMutex& InternalOrvProject::mutex() const {
  return project_->mutex();
}

KelMediaLib::EditRate InternalOrvProject::editRate() const {
  return project_->editRate();
}
// Mixers and tracks.

boost::shared_ptr<const KelMediaLib::VisualMixer> InternalOrvProject::visualMixer() const {
  return project_->visualMixer();
}

boost::shared_ptr<const KelMediaLib::AudioMixer> InternalOrvProject::audioMixer() const {
  return project_->audioMixer();
}

boost::shared_ptr<const KelMediaLib::VisualMixer> InternalOrvProject::newVisualMixer(float width,
                                                                                     float height) {
  return project_->newVisualMixer(width, height);
}

void InternalOrvProject::newVisualMixer(boost::shared_ptr<KelMediaLib::VisualMixer> mixer) {
  project_->newVisualMixer(mixer);
}

boost::shared_ptr<KelMediaLib::VisualMixer> InternalOrvProject::removeVisualMixer() {
  return project_->removeVisualMixer();
}

boost::shared_ptr<const KelMediaLib::AudioMixer> InternalOrvProject::newAudioMixer(
    unsigned int sampleRate, unsigned int bitDepth, unsigned int numChannels) {
  return project_->newAudioMixer(sampleRate, bitDepth, numChannels);
}

void InternalOrvProject::newAudioMixer(boost::shared_ptr<KelMediaLib::AudioMixer> mixer) {
  project_->newAudioMixer(mixer);
}

boost::shared_ptr<KelMediaLib::AudioMixer> InternalOrvProject::removeAudioMixer() {
  return project_->removeAudioMixer();
}

boost::shared_ptr<const KelMediaLib::VisualTrack> InternalOrvProject::newVisualTrack(int index) {
  return project_->newVisualTrack(index);
}

boost::shared_ptr<const KelMediaLib::VisualTrack> InternalOrvProject::newImageTrack(int index) {
  return project_->newImageTrack(index);
}

boost::shared_ptr<const KelMediaLib::AudioTrack> InternalOrvProject::newAudioTrack(int index) {
  return project_->newAudioTrack(index);
}

boost::shared_ptr<const KelMediaLib::Track> InternalOrvProject::newTrack(
    boost::shared_ptr<const KelMediaLib::Mixer> mixer, int index) {
  return project_->newTrack(mixer, index);
}

void InternalOrvProject::addTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                  boost::shared_ptr<KelMediaLib::Track> track, int index) {
  project_->addTrack(mixer, track, index);
}

int InternalOrvProject::removeTrack(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                    boost::shared_ptr<const KelMediaLib::Track> track) {
  return project_->removeTrack(mixer, track);
}

void InternalOrvProject::swapTrackOrder(boost::shared_ptr<const KelMediaLib::Mixer> mixer,
                                        boost::shared_ptr<const KelMediaLib::Track> first,
                                        boost::shared_ptr<const KelMediaLib::Track> second) {
  project_->swapTrackOrder(mixer, first, second);
}

void InternalOrvProject::move(boost::shared_ptr<const KelMediaLib::Track> track,
                              boost::shared_ptr<const Media> media, long long delta) {
  project_->move(track, media, delta);
}

void InternalOrvProject::trimStart(boost::shared_ptr<const KelMediaLib::Track> track,
                                   boost::shared_ptr<const Media> media, long long delta) {
  project_->trimStart(track, media, delta);
}

void InternalOrvProject::trimEnd(boost::shared_ptr<const KelMediaLib::Track> track,
                                 boost::shared_ptr<const Media> media, long long delta) {
  project_->trimEnd(track, media, delta);
}

double InternalOrvProject::stretch(boost::shared_ptr<const KelMediaLib::Track> track,
                                   boost::shared_ptr<const Media> media, double scalar) {
  return project_->stretch(track, media, scalar);
}

void InternalOrvProject::addLink(boost::shared_ptr<const Media> first,
                                 boost::shared_ptr<const Media> second) {
  project_->addLink(first, second);
}

void InternalOrvProject::addLink(boost::shared_ptr<const Media> first,
                                 boost::shared_ptr<const Media> second, int firstIndex,
                                 int secondIndex) {
  project_->addLink(first, second, firstIndex, secondIndex);
}

void InternalOrvProject::removeLink(boost::shared_ptr<const Media> first,
                                    boost::shared_ptr<const Media> second) {
  project_->removeLink(first, second);
}

// Effects.

void InternalOrvProject::addEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                   boost::shared_ptr<const KelMediaLib::Effect> effect) {
  project_->addEffect(effectable, effect);
}

void InternalOrvProject::insertEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                      boost::shared_ptr<const KelMediaLib::Effect> effect,
                                      int index) {
  project_->insertEffect(effectable, effect, index);
}

void InternalOrvProject::swapEffectOrder(
    boost::shared_ptr<const KelMediaLib::Effectable> effectable, int first, int second) {
  project_->swapEffectOrder(effectable, first, second);
}

int InternalOrvProject::removeEffect(boost::shared_ptr<const KelMediaLib::Effectable> effectable,
                                     boost::shared_ptr<const KelMediaLib::Effect> effect) {
  return project_->removeEffect(effectable, effect);
}

// Sources.

boost::shared_ptr<const KelMediaLib::Source> InternalOrvProject::loadSource(
    const std::string& fileName) {
  return project_->loadSource(fileName);
}

void InternalOrvProject::loadSource(boost::shared_ptr<const KelMediaLib::Source> source) {
  project_->loadSource(source);
}

void InternalOrvProject::unloadSource(boost::shared_ptr<const KelMediaLib::Source> source) {
  project_->unloadSource(source);
}

void InternalOrvProject::addClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) {
  project_->addClipping(clipping);
}

void InternalOrvProject::removeClipping(boost::shared_ptr<KelMediaLib::Clipping> clipping) {
  project_->removeClipping(clipping);
}

KelMediaLib::EdgeModCommandHandler* InternalOrvProject::edgeModCommandHandler() {
  return project_->edgeModCommandHandler();
}

}  // namespace OrvMediaLib
