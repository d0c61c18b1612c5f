#include "media/project/SourceBin.h"

#include "core/KelMediaLibException.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"

#include <algorithm>
#include <ostream>

namespace KelMediaLib {

namespace {

std::string sourceLabel(const Source& source) {
  return "source " + std::to_string(source.xmlIdent()) + " (\"" +
         source.mediaFileStats()->filename() + "\")";
}

}  // namespace

SourceBin::SourceBin() = default;

boost::shared_ptr<SourceBin> SourceBin::create() {
  return boost::shared_ptr<SourceBin>(new SourceBin());
}

std::vector<boost::shared_ptr<const Source>> SourceBin::sources() const {
  return sources_;
}

bool SourceBin::containsSource(const Source* source) const {
  return std::any_of(
      sources_.begin(), sources_.end(),
      [source](const boost::shared_ptr<const Source>& held) { return held.get() == source; });
}

std::vector<boost::shared_ptr<Clipping>> SourceBin::clippings() const {
  return clippings_;
}

void SourceBin::addSource(boost::shared_ptr<const Source> source) {
  if (!source) {
    throw KelMediaLibException("source bin: no source given");
  }
  if (containsSource(source.get())) {
    throw KelMediaLibException("source bin: " + sourceLabel(*source) + " is in the bin already");
  }
  const auto place =
      std::upper_bound(sources_.begin(), sources_.end(), source->xmlIdent(),
                       [](unsigned int ident, const boost::shared_ptr<const Source>& held) {
                         return ident < held->xmlIdent();
                       });
  sources_.insert(place, source);
  notify();
}

void SourceBin::removeSource(const Source* source) {
  const auto found = std::find_if(
      sources_.begin(), sources_.end(),
      [source](const boost::shared_ptr<const Source>& held) { return held.get() == source; });
  if (!source || found == sources_.end()) {
    throw KelMediaLibException(
        "source bin: " + (source ? sourceLabel(*source) : std::string("a null source")) +
        " isn't in the bin");
  }
  sources_.erase(found);
  notify();
}

void SourceBin::addClipping(boost::shared_ptr<Clipping> clipping) {
  if (!clipping) {
    throw KelMediaLibException("source bin: no clipping given");
  }
  if (std::find(clippings_.begin(), clippings_.end(), clipping) != clippings_.end()) {
    throw KelMediaLibException("source bin: the clipping \"" + clipping->name() +
                               "\" is in the bin already");
  }
  clippings_.push_back(clipping);
  notify();
}

void SourceBin::removeClipping(const Clipping* clipping) {
  const auto found = std::find_if(
      clippings_.begin(), clippings_.end(),
      [clipping](const boost::shared_ptr<Clipping>& held) { return held.get() == clipping; });
  if (!clipping || found == clippings_.end()) {
    throw KelMediaLibException("source bin: the clipping \"" +
                               (clipping ? clipping->name() : std::string()) +
                               "\" isn't in the bin");
  }
  clippings_.erase(found);
  notify();
}

void SourceBin::xmlName(Options& options) const {
  options.out << "SourceBin";
}

void SourceBin::xmlBody(Options& options, int depth) const {
  for (const auto& source : sources_) {
    source->toXML(options, depth, std::string());
  }
}

}  // namespace KelMediaLib
