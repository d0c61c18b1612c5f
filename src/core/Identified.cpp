#include "core/Identified.h"

#include <boost/weak_ptr.hpp>

#include <mutex>
#include <unordered_map>

namespace KelMediaLib {

namespace {

// The names in use, each shared by the objects that have it. A name goes
// from the table when the last of them goes, so a program that makes
// objects of ever new names doesn't keep them all.
class NameTable {
 public:
  // Never destroyed: an object with a name may outlive the statics.
  static NameTable& instance() {
    static NameTable* const table = new NameTable();
    return *table;
  }

  boost::shared_ptr<const std::string> intern(const std::string& name) {
    const std::lock_guard<std::mutex> lock(mutex_);
    boost::weak_ptr<const std::string>& entry = names_[name];
    if (boost::shared_ptr<const std::string> shared = entry.lock()) {
      return shared;
    }
    boost::shared_ptr<const std::string> made(new std::string(name), Release());
    entry = made;
    return made;
  }

 private:
  struct Release {
    void operator()(const std::string* name) const {
      instance().forget(*name);
      delete name;
    }
  };

  // The entry may already hold the name made anew by another thread after
  // this one's last holder went: only an expired entry goes.
  void forget(const std::string& name) {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = names_.find(name);
    if (found != names_.end() && found->second.expired()) {
      names_.erase(found);
    }
  }

  std::mutex mutex_;
  std::unordered_map<std::string, boost::weak_ptr<const std::string>> names_;
};

}  // namespace

Identified::Identified(const std::string& name) : name_(NameTable::instance().intern(name)) {}

Identified::~Identified() = default;

}  // namespace KelMediaLib
