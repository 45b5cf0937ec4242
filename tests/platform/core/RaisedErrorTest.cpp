#include "platform/core/RaisedError.h"

#include <gtest/gtest.h>

TEST(RaisedErrorTest, anUnnamedErrorCarriesTheDefaultSourceUntilAHandlerNamesIt)
{
    try {
        raiseError(-10500, "falta un nodo");
        FAIL() << "raiseError returned";
    } catch (RaisedError &e) {
        EXPECT_EQ(e.number(), -10500);
        EXPECT_EQ(e.source(), "Zorvanta");
        EXPECT_STREQ(e.what(), "falta un nodo");
        e.setSource("Seller:ministores");
        EXPECT_EQ(e.source(), "Seller:ministores");
    }
}
