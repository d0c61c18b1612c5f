#pragma once

#include "core/Attribute.h"
#include "core/XMLText.h"
#include "core/Command.h"
#include "values/KeyFrameCmdSupport.h"

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <ostream>

namespace KelMediaLib {

/// Sets the value of an attribute and tells the attribute's observers; undo
/// puts the value from before back and tells them again. The attribute is
/// held as const: writing it is this command's privilege. Redo runs `execute`
/// again and so takes the old value afresh.
///
/// A clone is a blank of this type (no attribute, no values) and refuses to
/// run.
template <class T>
class SetAttributeValueCmd : public Command {
 public:
  SetAttributeValueCmd(boost::shared_ptr<const Attribute<T>> attribute, const T& value)
      : attribute_(attribute), value_(value), oldValue_() {}

  /// A blank: nothing of `other` is taken over.
  SetAttributeValueCmd(const SetAttributeValueCmd& other) : Command(other), value_(), oldValue_() {}

  SetAttributeValueCmd& operator=(const SetAttributeValueCmd&) = delete;

  SetAttributeValueCmd* clone() const override { return new SetAttributeValueCmd(*this); }

  bool execute(CommandHandler*) override {
    const boost::shared_ptr<Attribute<T>> attribute = writable();
    T old = attribute->value();
    attribute->setValue(value_);
    attribute->notify();
    oldValue_ = old;
    return true;
  }

  bool unexecute(CommandHandler*) override {
    const boost::shared_ptr<Attribute<T>> attribute = writable();
    attribute->setValue(oldValue_);
    attribute->notify();
    return true;
  }

  void xmlName(Options& options) const override {
    writeLiteral(options.out, "SetAttributeValueCmd");
  }

  void xmlAttributes(Options& options) const override {
    std::ostream& out = options.out;
    out << "attribute=\"";
    keyFrameCmd::writeAddress(out, attribute_);
    out << "\" value=\"";
    keyFrameCmd::writeValue(out, value_);
    out << '"';
  }

  void xmlBody(Options&, int) const override {}

 protected:
  bool xmlHasAttributes() const override { return true; }

 private:
  boost::shared_ptr<Attribute<T>> writable() const {
    keyFrameCmd::require(attribute_, "SetAttributeValueCmd", "attribute");
    return boost::const_pointer_cast<Attribute<T>>(attribute_);
  }

  boost::shared_ptr<const Attribute<T>> attribute_;
  T value_;
  T oldValue_;
};

}  // namespace KelMediaLib
