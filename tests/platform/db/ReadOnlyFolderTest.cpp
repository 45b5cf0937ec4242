#include "SellerDatabaseSandbox.h"
#include "platform/core/RaisedError.h"
#include "platform/db/Connection.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr uid_t kNobody = 65534;

// What a person without write permission on the data folder sees, told back as lines. Root
// writes through any folder's permissions, so then the look runs in a child as "nobody".
std::vector<std::string> seenWithoutWritePermission(const std::function<std::string()> &look)
{
    int channel[2];
    if (pipe(channel) != 0)
        return {"no pipe"};
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        std::string told;
        if (geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0))
            told = look();
        else
            told = "could not become nobody";
        static_cast<void>(write(channel[1], told.data(), told.size()));
        _exit(0);
    }
    close(channel[1]);
    std::string told;
    char buffer[512];
    for (ssize_t got; (got = read(channel[0], buffer, sizeof buffer)) > 0;)
        told.append(buffer, static_cast<std::size_t>(got));
    close(channel[0]);
    int status = 0;
    waitpid(child, &status, 0);
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < told.size();) {
        const auto end = told.find('\n', start);
        lines.push_back(told.substr(start, end - start));
        start = end == std::string::npos ? told.size() : end + 1;
    }
    return lines;
}

std::string storesIn(Connection &db)
{
    std::string stores;
    for (Recordset rows = db.execute(Sql("SELECT IdTienda FROM WITIENDAS ORDER BY IdTienda"));
         !rows.eof(); rows.moveNext())
        stores += rows.fieldText(0) + " ";
    return stores;
}

// Reads the stores, then tries to add one, and tells both.
std::string readThenWrite()
{
    std::string told;
    try {
        Connection db;
        db.open(SellerDatabaseSandbox::kConnectionString, 15);
        told += "stores: " + storesIn(db) + "\n";
        try {
            db.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) "
                           "values ('9','Nueva','DEP9')"));
            told += "written\n";
        } catch (const RaisedError &) {
            told += "refused: " + db.errors().front().description + "\n";
        }
    } catch (const RaisedError &error) {
        told += "not opened: " + error.description() + "\n";
    }
    return told;
}

class ReadOnlyFolderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        data.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) "
                         "values ('1','Centro','DEP1')"));
    }
    void TearDown() override { chmod(data.dir().c_str(), 0700); }

    void makeFolderReadOnly() { ASSERT_EQ(chmod(data.dir().c_str(), 0555), 0); }

    SellerDatabaseSandbox data;
};

} // namespace

TEST_F(ReadOnlyFolderTest, theSellersRowsAreReadAndAWriteFailsWithTheEnginesWords)
{
    makeFolderReadOnly();

    EXPECT_THAT(seenWithoutWritePermission(readThenWrite),
                ElementsAre("stores: 1 ", HasSubstr("refused: attempt to write a readonly")));
    EXPECT_THAT(data.rows(Sql("SELECT IdTienda FROM WITIENDAS")), ElementsAre("1"));
}

TEST_F(ReadOnlyFolderTest, rowsThatAWriterStillHoldsInItsLogAreRead)
{
    // A connection left open keeps its committed row in the write-ahead file beside the database.
    Connection writer;
    writer.open(SellerDatabaseSandbox::kConnectionString, 15);
    writer.execute(Sql("INSERT INTO WITIENDAS (IdTienda, Descrip, IDDepoVDOVEL) "
                       "values ('2','Norte','DEP2')"));
    makeFolderReadOnly();

    const auto seen = seenWithoutWritePermission([] {
        Connection db;
        db.open(SellerDatabaseSandbox::kConnectionString, 15);
        return storesIn(db);
    });

    EXPECT_THAT(seen, ElementsAre("1 2 "));
}
