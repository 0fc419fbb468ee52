// The point at which tests make calls of the engine fail.

#include "dao/seam.h"
#include "support/dao_fixture.h"

namespace {

using daoengine::seam::Call;
using support::DaoErrorOf;
namespace seam = daoengine::seam;

class DaoSeamTest : public support::DaoTest {
  protected:
    // One of each call that can fail, in a fixed order.
    void CallAll() {
        COleVariant value;
        CDaoDatabase other;
        other.Open(Path().c_str());
        other.GetTableDefCount();
        CDaoRecordset rows(&other);
        rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
        rows.MoveFirst();
        rows.GetFieldValue("id", value);
        rows.GetRecordCount();
        CDaoQueryDef query(&other);
        query.Create(nullptr, "DELETE * FROM [numbers]");
        query.Execute();
    }
};

TEST_F(DaoSeamTest, EveryCallCanBeMadeToFail) {
    MakeNumbers(2);
    const Call order[] = {Call::OpenDatabase, Call::CountTables,  Call::OpenRecordset, Call::Move,
                          Call::ReadField,    Call::CountRecords, Call::CreateQuery,   Call::Execute};
    for (long nth = 1; nth <= 8; ++nth) {
        seam::FailCall(nth, 3197, false);
        EXPECT_EQ(DaoErrorOf([&] { CallAll(); }), 3197);
        EXPECT_EQ(seam::FailedCall(), order[nth - 1]);
        EXPECT_EQ(seam::CallsMade(), nth);
        EXPECT_EQ(seam::OpenRecordsets() + seam::OpenQueries(), 0) << "closed on the way out";
    }
    seam::Disarm();
    EXPECT_EQ(Rows("SELECT * FROM [numbers]").size(), 2U) << "a call that failed did nothing";
    seam::CountCalls();
    CallAll();
    EXPECT_EQ(seam::CallsMade(), 8);
    EXPECT_FALSE(seam::FailedCall());
}

TEST_F(DaoSeamTest, FailuresCanLast) {
    MakeNumbers(2);
    for (const bool everAfter : {false, true}) {
        seam::FailCall(2, 3197, everAfter);
        EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers]"), 0);
        EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers]"), 3197);
        EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers]"), everAfter ? 3197 : 0);
    }
}

}  // namespace
