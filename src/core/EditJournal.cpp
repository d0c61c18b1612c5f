#include "core/EditJournal.h"

namespace KelMediaLib {

namespace {

thread_local EditJournal* openJournal = nullptr;

}  // namespace

EditJournal::Entry::~Entry() = default;

EditJournal::EditJournal() : EditJournal(true) {}

EditJournal::EditJournal(bool keeps) : unjournaled_(false), keeps_(keeps) {}

EditJournal* EditJournal::discarding() {
  static EditJournal nothing(false);
  return &nothing;
}

EditJournal* EditJournal::current() {
  return openJournal;
}

void EditJournal::noteUnjournaledEdit() {
  if (openJournal && openJournal->keeps_) {
    openJournal->unjournaled_ = true;
  }
}

void EditJournal::seal() {
  for (const boost::shared_ptr<Entry>& entry : entries_) {
    entry->captureAfter();
  }
}

// Backwards: an object noted twice across appended journals ends with the
// state from before the earlier one.
void EditJournal::restoreBefore() const {
  const Scope suspended(nullptr);
  for (auto it = entries_.rbegin(); it != entries_.rend(); ++it) {
    (*it)->restoreBefore();
  }
}

void EditJournal::restoreAfter() const {
  const Scope suspended(nullptr);
  for (const boost::shared_ptr<Entry>& entry : entries_) {
    entry->restoreAfter();
  }
}

void EditJournal::append(const EditJournal& later) {
  entries_.insert(entries_.end(), later.entries_.begin(), later.entries_.end());
  noted_.insert(later.noted_.begin(), later.noted_.end());
  unjournaled_ = unjournaled_ || later.unjournaled_;
}

EditJournal::Scope::Scope(EditJournal* journal) : previous_(openJournal) {
  openJournal = journal;
}

EditJournal::Scope::~Scope() {
  openJournal = previous_;
}

}  // namespace KelMediaLib
