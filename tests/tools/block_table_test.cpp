#include "block_table.h"

#include <gtest/gtest.h>

#include <string>

namespace grub {
namespace {

struct TableFault {
    const char* what;
    const char* text;
    int line;
    const char* message;  // part of it
};

const TableFault kFaults[] = {
    {"a section that is not closed", "[5\n", 1, "'[NUMBER]'"},
    {"a section with a name", "[floor]\n", 1, "a block id from 0 to 65535, found 'floor'"},
    {"a section with zeros before", "[007]\n", 1, "a block id"},
    {"a section beyond 16 bits", "[65536]\n", 1, "a block id"},
    {"a section twice", "[5]\n[6]\n[5]\n", 3, "each block once, found '5'"},
    {"a key before the first section", "type=2\n", 1, "a section before the first key"},
    {"a key without a value", "[5]\ntype=\n", 2, "'KEY=VALUE'"},
    {"a blank before the equals sign", "[5]\ntype =2\n", 2, "found 'type '"},
    {"a blank behind it", "[5]\ntype= 2\n", 2, "decimal digits and nothing else, found ' 2'"},
    {"a sign", "[5]\ntype=-1\n", 2, "decimal digits and nothing else, found '-1'"},
    {"a key twice", "[5]\ntype=2\ntype=3\n", 3, "each key once in a section"},
    {"a type that does not exist", "[5]\ntype=10\n", 2, "a block type from 0 to 9"},
    {"a picture that does not exist", "[5]\nsprite=34\n", 2, "a sprite number of the loading list, found '34'"},
    {"a misspelt key", "[5]\nspritefon=36\n", 2, "found 'spritefon'"},
    {"a name that is a number", "[5]\nname=12\n", 2, "a name without blanks that is no number"},
    {"a name with a blank", "[5]\nname=a b\n", 2, "a name without blanks"},
    {"a name twice", "[5]\nname=a\n[6]\nname=a\n", 4, "each name once"},
    {"a floor that cannot break", "[5]\nsprite=36\n[6]\ntype=1\nspriteRost=90\n[7]\n", 3, "spriteFire and spriteRost"},
    {"a floor that cannot grow back", "[6]\ntype=1\nspriteFire=88\n", 1, "spriteFire and spriteRost"},
    {"a door without a picture", "[6]\ntype=8\n", 1, "spriteRost for a door"},
    {"a hidden ladder that never shows", "[6]\ntype=6\n", 1, "spriteRost for a door or a hidden ladder"},
    {"a last line without an end", "[6]\ntype=2", 2, "wanted a line end"},
};

TEST(BlockTable, GivesLinesTheEndsThatTheGameReads) {
    TextError error;
    EXPECT_EQ(packBlockTable("; c\n[6]\ntype=1\nspriteFire=88\nspriteRost=90\n", error),
              "; c\r\n[6]\r\ntype=1\r\nspriteFire=88\r\nspriteRost=90\r\n");
    EXPECT_EQ(packBlockTable("[6]\r\ntype=2\r\n", error), "[6]\r\ntype=2\r\n");
}

TEST(BlockTable, RefusesWhatTheGameWouldSkipOrMisread) {
    for (const TableFault& fault : kFaults) {
        TextError error{-1, "no error"};
        EXPECT_FALSE(packBlockTable(fault.text, error)) << fault.what;
        EXPECT_EQ(error.line, fault.line) << fault.what << ": " << error.message;
        EXPECT_NE(error.message.find(fault.message), std::string::npos) << fault.what << ": " << error.message;
    }
}

}  // namespace
}  // namespace grub
