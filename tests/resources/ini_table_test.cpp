#include "ini_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "bytes.h"

namespace grub {
namespace {

IniTable tableOf(std::string_view text, std::uint32_t bucketCount) { return {bufferOf(bytesOf(text)), bucketCount}; }

constexpr const char* kAbsent = nullptr;

/// What a file answers to one question.
struct IniRule {
    const char* rule;
    std::string_view file;
    const char* section;
    const char* key;
    const char* string;  // kAbsent: the table does not have it
    int number;
};
const IniRule kIniRules[] = {
    {"the first definition wins", "[5]\r\ntype=2\r\ntype=3\r\n", "5", "type", "2", 2},
    {"the first string and the first number win apart", "a=abc\r\na=5\r\n", "", "a", "abc", 5},
    {"names are case-sensitive", "[a]\r\nkey=1\r\n", "A", "key", kAbsent, -1},
    // Section and key are glued.
    {"section 12, key type is also section 1, key 2type", "[12]\r\ntype=1\r\n", "1", "2type", "1", 1},
    {"names of one hash are two names", "endos=1\r\ntnla=2\r\n", "", "tnla", "2", 2},
    // Sections.
    {"blanks belong to the section's name", "[ 5 ]\r\nx=1\r\n", " 5 ", "x", "1", 1},
    {"the last bracket closes", "[a] ; x]\r\nx=1\r\n", "a] ; x", "x", "1", 1},
    {"an unclosed header keeps the section", "[a]\r\n[b\r\nx=1\r\n", "a", "x", "1", 1},
    // Trimming: blanks at the line's start, nothing else.
    {"a blank before = belongs to the key", "x =1\r\n", "", "x ", "1", 1},
    {"a blank after = belongs to the value", "name= fire\r\n", "", "name", " fire", -1},
    {"the first = splits", "x=1=2\r\n", "", "x", "1=2", -1},
    // Ignored lines.
    {"a comment after blanks", "  ;x=1\r\n", "", "x", kAbsent, -1},
    {"no =", "x\r\n", "", "x", kAbsent, -1},
    {"nothing after =", "x=\r\n", "", "x", kAbsent, -1},
    // Numbers.
    {"a sign is no digit", "x=+5\r\n", "", "x", "+5", -1},
    {"numbers wrap", "x=4294967303\r\n", "", "x", "4294967303", 7},
    {"even to the value of absence", "x=4294967295\r\n", "", "x", "4294967295", -1},
    // Line ends.
    {"a last line without end is lost", "x=1\r\ny=2", "", "y", kAbsent, -1},
    {"a CR alone does not end it", "y=2\r", "", "y", kAbsent, -1},
    {"of CR CR LF one CR stays", "x=1\r\r\n", "", "x", "1\r", -1},
};

TEST(IniTable, AnswersAsTheTableOfRulesSaysAlsoWithoutCr) {
    for (const IniRule& rule : kIniRules) {
        std::string withoutCr(rule.file);
        if (withoutCr.find("\r\r") == std::string::npos) std::erase(withoutCr, '\r');
        for (const std::string_view file : {rule.file, std::string_view(withoutCr)}) {
            SCOPED_TRACE(rule.rule);
            const IniTable table = tableOf(file, 1);  // in one bucket all names meet
            EXPECT_EQ(table.has(rule.section, rule.key), rule.string != kAbsent);
            EXPECT_STREQ(table.getString(rule.section, rule.key).cStr(), rule.string != kAbsent ? rule.string : "");
            EXPECT_EQ(table.getInt(rule.section, rule.key), rule.number);
        }
    }
}

TEST(IniTable, KeepsEveryEntryWhateverTheNumberOfBuckets) {
    std::string text;
    for (int i = 0; i < 500; ++i) text += "[" + std::to_string(i) + "]\ntype=" + std::to_string(i * 3) + "\n";
    EXPECT_EQ(IniTable(SharedBuffer(), 3000).getInt("1", "type"), -1) << "a missing file";
    for (const std::uint32_t bucketCount : {0U, 1U, 3000U}) {
        const IniTable table = tableOf(text, bucketCount);
        for (int i = 0; i < 500; ++i) EXPECT_EQ(table.getInt(std::to_string(i).c_str(), "type"), i * 3);
    }
}

}  // namespace
}  // namespace grub
