#include "jetfile/database_file.h"

#include "jetfile/text.h"

namespace jetfile {
namespace {

Header AdmittedHeader(ByteSource& source, const std::string& password) {
    Header header = ReadHeader(source);
    CheckAccess(header, password);
    return header;
}

}  // namespace

DatabaseFile::DatabaseFile(std::unique_ptr<ByteSource> source, const std::string& password)
    : header(AdmittedHeader(*source, password)),
      layout(LayoutOf(header.kind)),
      pages(std::move(source), layout.pageSize) {}

std::string DatabaseFile::DecodeName(ByteView bytes) const {
    if (header.kind == FileKind::Jet3) return DecodeCodePageField(header.codePage, bytes);
    std::string utf8;
    AppendUtf16(bytes, utf8);
    return utf8;
}

}  // namespace jetfile
