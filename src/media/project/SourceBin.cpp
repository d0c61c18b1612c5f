#include "media/project/SourceBin.h"

#include "core/KelMediaLibException.h"
#include "core/XMLText.h"
#include "media/sources/Clipping.h"
#include "media/sources/MediaFileStats.h"
#include "media/sources/Source.h"
#include "media/sources/SourceBinSentry.h"

#include <algorithm>
#include <ostream>

namespace KelMediaLib {

namespace {

std::string sourceLabel(const Source& source) {
  return "source " + std::to_string(source.xmlIdent()) + " (\"" +
         source.mediaFileStats()->filename() + "\")";
}

typedef void (SourceBinSentry::*Tell)(boost::shared_ptr<const Source>);

// Tells every sentry; when one throws, those told before it hear `undo`,
// `revert` puts the bin back, and the exception goes on.
template <class Revert>
void tellAll(const std::vector<boost::shared_ptr<SourceBinSentry>>& sentries, Tell tell, Tell undo,
             const boost::shared_ptr<const Source>& source, Revert revert) {
  std::size_t told = 0;
  try {
    for (; told < sentries.size(); ++told) {
      (sentries[told].get()->*tell)(source);
    }
  } catch (...) {
    while (told > 0) {
      --told;
      try {
        (sentries[told].get()->*undo)(source);
      } catch (...) {
        // The first failure is the one reported; the others are dropped.
      }
    }
    revert();
    throw;
  }
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
  const auto inserted = sources_.insert(place, source);
  const std::ptrdiff_t index = inserted - sources_.begin();
  tellAll(sentries_, &SourceBinSentry::sourceLoaded, &SourceBinSentry::sourceUnloaded, source,
          [this, index] { sources_.erase(sources_.begin() + index); });
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
  const boost::shared_ptr<const Source> removed = *found;
  const std::ptrdiff_t index = found - sources_.begin();
  sources_.erase(found);
  tellAll(sentries_, &SourceBinSentry::sourceUnloaded, &SourceBinSentry::sourceLoaded, removed,
          [this, index, removed] { sources_.insert(sources_.begin() + index, removed); });
  notify();
}

void SourceBin::addSentry(boost::shared_ptr<SourceBinSentry> sentry) {
  if (!sentry) {
    throw KelMediaLibException("source bin: no sentry given");
  }
  if (std::find(sentries_.begin(), sentries_.end(), sentry) != sentries_.end()) {
    throw KelMediaLibException("source bin: the sentry is kept already");
  }
  sentries_.push_back(sentry);
}

void SourceBin::addClipping(boost::shared_ptr<Clipping> clipping) {
  if (!clipping) {
    throw KelMediaLibException("source bin: no clipping given");
  }
  if (!containsSource(clipping->source().get())) {
    throw KelMediaLibException("source bin: the clipping \"" + clipping->name() + "\" marks " +
                               sourceLabel(*clipping->source()) + ", which isn't in the bin");
  }
  if (std::find(clippings_.begin(), clippings_.end(), clipping) != clippings_.end()) {
    throw KelMediaLibException("source bin: the clipping \"" + clipping->name() +
                               "\" is in the bin already");
  }
  const auto place =
      std::upper_bound(clippings_.begin(), clippings_.end(), clipping->serial(),
                       [](unsigned long long serial, const boost::shared_ptr<Clipping>& held) {
                         return serial < held->serial();
                       });
  clippings_.insert(place, clipping);
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
  writeLiteral(options.out, "SourceBin");
}

void SourceBin::xmlBody(Options& options, int depth) const {
  for (const auto& source : sources_) {
    source->toXML(options, depth, std::string());
  }
}

}  // namespace KelMediaLib
