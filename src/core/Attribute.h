#pragma once

#include "core/KelObject.h"
#include "core/ReadWriteMutex.h"
#include "core/Subject.h"
#include "core/XMLIdentified.h"
#include "core/XMLText.h"
#include "core/XMLable.h"

#include <ostream>
#include <string>
#include <utility>

namespace KelMediaLib {

template <class T>
class SetAttributeValueCmd;

/// A named value of a model object that isn't animated (a mixer's width, a
/// track's ident). It has a lock of its own, under which `value()` copies it,
/// and tells its observers of each change. Only `SetAttributeValueCmd` writes
/// it, so that every change is undoable.
///
/// Written as `<Attribute id=".." name=".." value=".."/>`.
template <class T>
class Attribute : public KelObject, public Subject, public XMLable, public virtual XMLIdentified {
 public:
  typedef T value_type;

  Attribute(std::string name, T initial) : name_(std::move(name)), value_(std::move(initial)) {}

  const std::string& name() const { return name_; }

  /// A copy of the value, taken under the attribute's read lock.
  T value() const {
    ReadWriteMutex::ScopedReadLock lock(mutex_);
    return value_;
  }

  /// The attribute's own lock.
  ReadWriteMutex& mutex() const { return mutex_; }

  void xmlName(Options& options) const override { writeLiteral(options.out, "Attribute"); }

  void xmlAttributes(Options& options) const override {
    writeFirstXMLAttribute(options.out, "id", options.ident(*this));
    writeLiteral(options.out, " name=\"");
    writeXMLValue(options.out, name_);
    writeLiteral(options.out, "\" value=\"");
    writeXMLValue(options.out, value());
    options.out << '"';
  }

 protected:
  bool xmlHasBody() const override { return false; }

 private:
  friend class SetAttributeValueCmd<T>;

  void setValue(const T& value) {
    ReadWriteMutex::ScopedWriteLock lock(mutex_);
    value_ = value;
  }

  std::string name_;
  T value_;
  mutable ReadWriteMutex mutex_;
};

}  // namespace KelMediaLib
