#include "session.h"

#include <kalodata/session.h>

#include "progress.h"
#include "status_words.h"
#include "system.h"

namespace cli {
namespace {

constexpr std::uint16_t kStandardTables = 1;
constexpr std::uint16_t kIndexerTables = 2;

// The file has to be free, and is of no use any more, before its directory goes.
void End() {
    KaloClose();
    KaloRemove();
}

}  // namespace

Session::Session(const CommonOptions& options) : Session(options, false) {}

Session::Session(const CommonOptions& options, bool indexer) : copy_(options.file) {
    KaloSetFileName("kalo", SystemFromPath(copy_.Path()).c_str());
    Check("KaloModelTableSelect", KaloModelTableSelect(indexer ? kIndexerTables : kStandardTables));
    KaloStatus status = 0;
    {
        const Progress progress("converting " + options.file);
        status = KaloOpen(options.language);
    }
    if (status != 0) End();
    Check("KaloOpen", status);
}

Session::~Session() {
    End();
}

}  // namespace cli
