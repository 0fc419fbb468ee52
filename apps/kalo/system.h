#pragma once

#include <filesystem>
#include <functional>
#include <string>

// What differs between the systems, apart from text.
namespace cli {

// Makes the standard streams carry UTF-8 bytes as they are, and turns a pipe without a reader into a failed
// write.
void PrepareStreams();

// Whether the write that just failed did so because nobody reads the output any more.
bool ReaderIsGone();

bool ErrorStreamIsTerminal();

// A path from an argument or to the library, in the system's code page.
std::filesystem::path PathFromSystem(const std::string& text);
std::string SystemFromPath(const std::filesystem::path& path);

// A new directory that only this user can read, among the system's temporary files. Throws Failure.
std::filesystem::path MakePrivateDirectory();

// Calls `cleanUp` when the user or the system ends the program by a signal; the program then ends by that
// signal. To be called once, before any other thread is started.
void OnInterruption(std::function<void()> cleanUp);

}  // namespace cli
