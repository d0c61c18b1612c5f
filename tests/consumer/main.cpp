// Builds against the installed package and exercises one object of each library.
#include <OrvMediaLib.h>

#include <iostream>

int main() {
  KelMediaLib::ThreadSafe project;
  KelMediaLib::ReadWriteMutex::ScopedReadLock lock(project.mutex());
  const OrvMediaLib::OrvException failure("consumer check");
  std::cout << "OrvMediaLib consumer: " << failure.what() << '\n';
  return 0;
}
