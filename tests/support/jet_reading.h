#pragma once

#include <string>
#include <vector>

#include "jetfile/reader.h"

namespace support {

// A reader over an image in memory.
jetfile::Reader OpenImage(jetfile::Blob image, const std::string& password = "");

// An image of a sample database (IdeInfo.mdb, IdeInfoJ.mdb).
jetfile::Blob SampleImage(const std::string& sample);

// The password of the sample databases.
inline const std::string kSamplePassword = "mivmiv";

std::vector<jetfile::Row> RowsOf(const jetfile::Reader& reader, const std::string& table);

// The table's definition; fails the test and gives an empty one when there is none.
jet::Table TableOf(const jetfile::Reader& reader, const std::string& table);

// The DAO error number of opening the image and reading every row of it; 0 when all of it reads well.
int ErrorOfReadingAll(jetfile::Blob image, const std::string& password = "");

}  // namespace support
