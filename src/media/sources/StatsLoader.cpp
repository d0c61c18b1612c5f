#include "media/sources/StatsLoader.h"

#include "core/KelMediaLibException.h"
#include "media/sources/FFmpegStatsLoader.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <mutex>

namespace KelMediaLib {

namespace {

struct Registry {
  std::mutex mutex;
  std::vector<boost::shared_ptr<StatsLoader>> registered;
  boost::shared_ptr<StatsLoader> fallback = boost::make_shared<FFmpegStatsLoader>();
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

void StatsLoader::registerLoader(boost::shared_ptr<StatsLoader> loader) {
  if (!loader) {
    throw KelMediaLibException("stats loaders: can't register a null loader");
  }
  Registry& all = registry();
  std::lock_guard<std::mutex> lock(all.mutex);
  if (loader == all.fallback ||
      std::find(all.registered.begin(), all.registered.end(), loader) != all.registered.end()) {
    throw KelMediaLibException("stats loaders: the loader " + loader->description() +
                               " is registered already");
  }
  all.registered.push_back(loader);
}

void StatsLoader::unregisterLoader(const StatsLoader* loader) {
  Registry& all = registry();
  std::lock_guard<std::mutex> lock(all.mutex);
  const auto found = std::find_if(
      all.registered.begin(), all.registered.end(),
      [loader](const boost::shared_ptr<StatsLoader>& held) { return held.get() == loader; });
  if (!loader || found == all.registered.end()) {
    throw KelMediaLibException("stats loaders: can't unregister a loader that isn't registered");
  }
  all.registered.erase(found);
}

std::vector<boost::shared_ptr<StatsLoader>> StatsLoader::loaders() {
  Registry& all = registry();
  std::lock_guard<std::mutex> lock(all.mutex);
  std::vector<boost::shared_ptr<StatsLoader>> inOrder = all.registered;
  inOrder.push_back(all.fallback);
  return inOrder;
}

boost::shared_ptr<StatsLoader> StatsLoader::loaderFor(const std::string& path) {
  // Asked outside the registry's lock: a loader may take its time, or
  // register another one.
  for (const boost::shared_ptr<StatsLoader>& loader : loaders()) {
    if (loader->canOpenFile(path)) {
      return loader;
    }
  }
  return boost::shared_ptr<StatsLoader>();
}

}  // namespace KelMediaLib
