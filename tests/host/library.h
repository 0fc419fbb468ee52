#pragma once

#include <string>

namespace host {

// The knowledge-database library, loaded into this process by its path. Ends the program where it cannot be
// loaded.
class Library {
  public:
    explicit Library(const std::string& path);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // Address of an exported function, null where the library has none of that name.
    void* Address(const char* name) const;

  private:
    void* handle_;
};

// Makes the standard output carry bytes as they are.
void WriteBytesUnchanged();

// A text of the library in the code page in which the program reports texts. A sign that the code page lacks
// becomes '?'.
std::string ReportedText(const std::string& text);

}  // namespace host
