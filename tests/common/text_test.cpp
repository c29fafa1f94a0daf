#include "common/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tallmar {

TEST(TextTest, CaseCoversTheLettersOfThePage) {
    EXPECT_EQ(To_Upper("abc xyz {1}"), "ABC XYZ {1}");
    EXPECT_EQ(To_Lower("ABC XYZ [1]"), "abc xyz [1]");
    EXPECT_EQ(To_Upper("àéöþÿšœž"), "ÀÉÖÞŸŠŒŽ");
    EXPECT_EQ(To_Lower("ÀÉÖÞŸŠŒŽ"), "àéöþÿšœž");
}

TEST(TextTest, SignsAmongTheLettersAreLeftAlone) {
    EXPECT_EQ(To_Lower("×ß"), "×ß");
    EXPECT_EQ(To_Upper("÷ßµƒ"), "÷ßµƒ");
    EXPECT_EQ(To_Upper("αβя"), "αβя") << "letters beyond the page have no case here";
}

TEST(TextTest, StrayBytesStandForThemselves) {
    EXPECT_EQ(To_Upper("a\xE0z"), "A\xE0Z");
    EXPECT_EQ(To_Lower("\xC3"), "\xC3");
    EXPECT_NE(Compare_Text("\xE0", "\xC0"), 0);
}

TEST(TextTest, ComparisonIsWithoutRegardToCase) {
    EXPECT_EQ(Compare_Text("Skilled Nursing", "SKILLED nursing"), 0);
    EXPECT_TRUE(Same_Text("ÉCOLE", "école"));
    EXPECT_LT(Compare_Text("a", "B"), 0);
    EXPECT_GT(Compare_Text("ab", "A"), 0);
    EXPECT_LT(Compare_Text("", "a"), 0);
    EXPECT_LT(Compare_Text("z", "é"), 0);
    EXPECT_FALSE(Same_Text("a", "a "));
}

TEST(TextTest, ComparisonIsATotalOrder) {
    const std::vector<std::string> texts = {"",  "a", "A", "_", "[",        "z",        "Z",     "é",   "É",
                                            "×", "Ÿ", "ÿ", "€", "\xE0",     "\xC0",     "a\xE0", "1",   "a1",
                                            "@", "{", "ß", "😀", "\xF0\x9F", "\xC0\x80", "aé",    "aÉx", "\x7F"};
    for (const auto& a : texts) {
        for (const auto& b : texts) {
            EXPECT_EQ(Compare_Text(a, b), -Compare_Text(b, a)) << a << "|" << b;
            EXPECT_EQ(Compare_Text(a, b) == 0, To_Lower(a) == To_Lower(b)) << a << "|" << b;
            for (const auto& c : texts) {
                if (Compare_Text(a, b) <= 0 && Compare_Text(b, c) <= 0) {
                    EXPECT_LE(Compare_Text(a, c), 0) << a << "|" << b << "|" << c;
                }
            }
        }
    }
}

TEST(TextTest, LikeKnowsItsAtoms) {
    EXPECT_TRUE(Like("Cp2m1234", "cp2*"));
    EXPECT_TRUE(Like("K4p2h0", "K4p2h#"));
    EXPECT_FALSE(Like("K4p2hx", "K4p2h#"));
    EXPECT_TRUE(Like("é", "?"));
    EXPECT_TRUE(Like("É", "[à-ÿ]"));
    EXPECT_TRUE(Like("b", "[A-C]"));
    EXPECT_FALSE(Like("b", "[!a-c]"));
    EXPECT_TRUE(Like("*", "[*]"));
    EXPECT_FALSE(Like("a", "[*]"));
    EXPECT_TRUE(Like("-", "[a-]"));
    EXPECT_TRUE(Like("-", "[-a]"));
    EXPECT_TRUE(Like("a]", "a]"));
}

TEST(TextTest, LikeAtItsEdges) {
    EXPECT_TRUE(Like("", ""));
    EXPECT_TRUE(Like("", "*"));
    EXPECT_FALSE(Like("a", ""));
    EXPECT_FALSE(Like("", "?"));
    EXPECT_TRUE(Like("ab", "a[]b"));
    EXPECT_TRUE(Like("a", "a[]*[]"));
    EXPECT_TRUE(Like("!", "[!]"));
    EXPECT_FALSE(Like("a", "[a"));
    EXPECT_FALSE(Like("a", "*["));
    EXPECT_FALSE(Like("b", "[c-a]"));
    EXPECT_TRUE(Like("\xE0", "?")) << "a stray byte is a character";
}

TEST(TextTest, LikeIsNotSlowOnAHostilePattern) {
    std::string pattern;
    for (int i = 0; i < 200; ++i) pattern += "*a";
    const std::string text(20'000, 'a');
    EXPECT_TRUE(Like(text, pattern));
    EXPECT_FALSE(Like(text, pattern + "b"));
}

// The oracle: tries every way, atom by atom.
bool Naive_Like(const std::string& text, const std::vector<std::string>& atoms, std::size_t t, std::size_t a) {
    if (a == atoms.size()) return t == text.size();
    const std::string& atom = atoms[a];
    if (atom == "*") return Naive_Like(text, atoms, t, a + 1) || (t < text.size() && Naive_Like(text, atoms, t + 1, a));
    if (t == text.size()) return false;
    const auto lower = static_cast<char>(text[t] >= 'A' && text[t] <= 'Z' ? text[t] + 32 : text[t]);
    const bool matches = atom == "?"       ? true
                         : atom == "#"     ? lower >= '0' && lower <= '9'
                         : atom == "[a-b]" ? lower == 'a' || lower == 'b'
                                           : lower == (atom == "B" ? 'b' : atom[0]);
    return matches && Naive_Like(text, atoms, t + 1, a + 1);
}

// All sequences of up to four of the pieces.
std::vector<std::vector<std::string>> Up_To_Four(const std::vector<std::string>& pieces) {
    std::vector<std::vector<std::string>> all = {{}};
    for (std::size_t begin = 0, length = 0; length < 4; ++length) {
        const std::size_t end = all.size();
        for (; begin < end; ++begin) {
            for (const auto& piece : pieces) {
                all.push_back(all[begin]);
                all.back().push_back(piece);
            }
        }
    }
    return all;
}

TEST(TextTest, LikeEqualsTheNaiveMatcher) {
    const auto joined = [](const std::vector<std::string>& pieces) {
        std::string text;
        for (const auto& piece : pieces) text += piece;
        return text;
    };
    std::vector<std::string> texts;
    for (const auto& pieces : Up_To_Four({"a", "A", "b", "c", "7"})) texts.push_back(joined(pieces));
    int matched = 0;
    for (const auto& atoms : Up_To_Four({"a", "B", "*", "?", "#", "[a-b]"})) {
        const std::string pattern = joined(atoms);
        for (const auto& text : texts) {
            const bool expected = Naive_Like(text, atoms, 0, 0);
            matched += expected ? 1 : 0;
            ASSERT_EQ(Like(text, pattern), expected) << text << " Like " << pattern;
        }
    }
    EXPECT_GT(matched, 1000);
}

TEST(TextTest, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta "), "\ta");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim_Left("  a "), "a ");
    EXPECT_EQ(Trim_Right("  a "), "  a");
}

TEST(TextTest, PartsCountCharacters) {
    EXPECT_EQ(Length("aéz"), 3U);
    EXPECT_EQ(Length("a\xE0\x80z"), 4U) << "each stray byte is one";
    EXPECT_EQ(Mid("aéiou", 2, 2), "éi");
    EXPECT_EQ(Mid("abc", 3, 99), "c");
    EXPECT_EQ(Mid("abc", 4, 1), "");
    EXPECT_EQ(Mid("abc", 0, 1), "");
    EXPECT_EQ(Left("éa", 1), "é");
    EXPECT_EQ(Left("abc", 0), "");
    EXPECT_EQ(Right("abcé", 2), "cé");
    EXPECT_EQ(Right("abc", 9), "abc");
    EXPECT_EQ(Right("abc", -1), "");
}

TEST(TextTest, InStrCountsFromOne) {
    EXPECT_EQ(In_Str(1, "ACCUMULATED COST", "COST"), 13);
    EXPECT_EQ(In_Str(1, "éa", "a"), 2);
    EXPECT_EQ(In_Str(2, "aba", "a"), 3);
    EXPECT_EQ(In_Str(1, "abc", "B"), 0) << "case is observed";
    EXPECT_EQ(In_Str(1, "abc", ""), 1);
    EXPECT_EQ(In_Str(1, "", ""), 0);
    EXPECT_EQ(In_Str(4, "abc", "c"), 0);
    EXPECT_EQ(In_Str(0, "abc", "a"), 0);
}

TEST(TextTest, ReplaceTakesEachOnceFromTheLeft) {
    EXPECT_EQ(Replace("a'b'", "'", "''"), "a''b''");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_TRUE(Begins_With("Cp2m", "Cp2"));
    EXPECT_FALSE(Begins_With("Cp", "Cp2"));
}

TEST(TextTest, EveryByteOfThePageGoesThereAndBack) {
    for (int i = 0; i < 256; ++i) {
        const std::string byte(1, static_cast<char>(i));
        EXPECT_TRUE(Is_Valid_Utf8(From_Cp1252(byte))) << i;
        EXPECT_EQ(To_Cp1252(From_Cp1252(byte)), byte) << i;
    }
    EXPECT_EQ(Outside_Cp1252("Café € ? “Ž”"), "");
    EXPECT_EQ(Outside_Cp1252("日本 日 Ω?"), "'日', '本', 'Ω'");
    EXPECT_EQ(To_Cp1252("€Žé"), "\x80\x8E\xE9");
    EXPECT_EQ(To_Cp1252("aΩ\xE0"), "a??");
}

TEST(TextTest, ValidUtf8IsTheShortestForm) {
    EXPECT_TRUE(Is_Valid_Utf8("aé€😀"));
    EXPECT_FALSE(Is_Valid_Utf8("\xC0\x80"));
    EXPECT_FALSE(Is_Valid_Utf8("\xE0\x80\x80"));
    EXPECT_FALSE(Is_Valid_Utf8("\xED\xA0\x80")) << "half of a pair";
    EXPECT_FALSE(Is_Valid_Utf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(Is_Valid_Utf8("\xE2\x82"));
}

}  // namespace tallmar
