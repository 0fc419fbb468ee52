#pragma once

#include <afxdao.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/temporary_directory.h"

namespace support {

// The DAO number of the exception that `work` throws; 0 when it throws none.
int DaoErrorOf(const std::function<void()>& work);

// A variant as text: numbers plainly, Null as "-".
std::string TextOf(const COleVariant& value);

// An empty database of the engine's own format, open, in a directory of its own.
class DaoTest : public testing::Test {
  protected:
    DaoTest();
    ~DaoTest() override;

    // Runs statements in turn; gives the rows affected by the last one.
    long Run(std::initializer_list<const char*> statements);
    long Run(const std::string& statement) { return Run({statement.c_str()}); }

    int ErrorOfRun(const std::string& statement);
    int ErrorOfOpen(const std::string& select);

    // The rows of a SELECT, fields separated by '|'.
    static std::vector<std::string> Rows(CDaoDatabase& database, const std::string& select);
    std::vector<std::string> Rows(const std::string& select) { return Rows(database, select); }

    // Makes [numbers] with [id] from 0 and [name] "n<id>".
    void MakeNumbers(int rows);

    std::string Path() const { return directory.File("test.mdb"); }

    TemporaryDirectory directory;
    CDaoDatabase database;
};

}  // namespace support
