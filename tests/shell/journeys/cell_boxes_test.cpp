// Every box that a cell raises, on the screen: keyed into the real form, read to the letter, answered by a click.
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "report/open_report.h"
#include "screens/view/qt_text.h"
#include "shell/journeys/desk.h"

namespace tallmar {

namespace {

#define ENTERING(text)                                         \
    "You're attempting to enter invalid data ['" text          \
    "'].  The cell you're attempting to input or modify only " \
    "accepts "
constexpr int kWarning = kOkOnly + kExclamation;
constexpr int kAsks = kOkCancel + kExclamation;
constexpr int kAsksThree = kYesNoCancel + kExclamation;

struct CellBox {
    const char* name;
    const FiscalYear& year;
    const char* item;
    LineRef line;
    ColumnRef column;
    const char* typed;
    const char *title, *text;
    int buttons = kStop;
    Answer answer = Answer::Ok;
    const char* held = nullptr;    // by the table when the row was left; null: as before
    const char* before = nullptr;  // a statement that makes the case
    friend std::ostream& operator<<(std::ostream& out, const CellBox& box) { return out << box.name; }
};

const std::vector<CellBox>& Boxes() {
    static const std::vector<CellBox> boxes{
        {"TextTooLong", fy2016, "Dp2", 25.5, "Description", "Other adjustments, specified at length",
         "Invalid Length Entry",
         ENTERING("Other adjustments, specified at length") "up to 36 characters.  Your entry or modification is being "
                                                            "discarded.  Select OK to continue."},
        {"NotANumber", fy2016, "A", 6, 1, "abc", "Invalid Non-Numeric Entry",
         ENTERING("abc") "numeric data.  Your entry or modification is being discarded.  Select OK to continue."},
        {"RoundedUp", fy2016, "A", 6, 1, "12.5", "Too Specific Numeric Entry",
         ENTERING("12.5") "0 digits to the right of the decimal point.  Your entry or modification is being rounded.",
         kWarning, Answer::Ok, "13"},
        {"RoundedDown", fy2016, "A", 6, 1, "-12.5", "Too Specific Numeric Entry",
         ENTERING("-12.5") "0 digits to the right of the decimal point.  Your entry or modification is being rounded.",
         kWarning, Answer::Ok, "-13"},
        {"TooLarge", fy2016, "A", 6, 1, "999999999999999999", "Number Too Large",
         "You're attempting to enter invalid data ['999999999999999999'].  The number is larger than the cell can hold."
         "  Your entry or modification is being discarded.  Select OK to continue."},
        {"SingleValueNotANumber", fy2016, "A5", 1, 2, "abc", "Invalid Non-Numeric Entry",
         ENTERING("abc") "numeric data.  Your entry or modification is being discarded."},
        {"CostCenter", fy2016, "A5", 1, 4, "77", "Error: Invalid Entry",
         "Invalid Cost Center, entries must be a valid Cost Center Number."},
        {"Basis", fy2016, "A5", 1, 1, "C", "Error: Invalid Non-Alphanumeric Entry",
         ENTERING("C") "an 'A' or a 'B'.  Your entry or modification is being discarded.  Select OK to continue."},
        {"Code", fy2016, "A4", 1, 1, "7", "Error: Invalid CODE Entry",
         "A valid CODE [any letter from 'A' through 'Z'] must be entered.  Select OK to continue."},
        {"Explanation", fy2016, "A4", 1, 1, "A", "Error: Blank EXPLANATION Item",
         "The EXPLANATION may not be left blank for the first reclassification in a given code."},
        {"UpCostCenter", fy2016, "A4", 1, 3, "77", "Error: Invalid 'Up CC number' Entry",
         "The Up CC number is not a valid cost center number"},
        {"UpAmount", fy2016, "A4", 1, 4, "abc", "Error: Invalid Non-numeric 'UpSalary' Entry",
         "Valid 'UpSalary' entries are numeric only.  Select OK to continue."},
        {"DownCostCenter", fy2016, "A4", 1, 6, "77", "Error: Invalid 'Down CC number' Entry",
         "The Down CC number is not a valid cost center number"},
        {"DownAmount", fy2016, "A4", 1, 7, "abc", "Error: Invalid Non-numeric 'DnSalary' Entry",
         "Valid 'DnSalary' entries are numeric only.  Select OK to continue."},
        {"Answer", fy2016, "A6pA", 0, "Answer", "Q", "Entry Error", "Please enter Y or N."},
        {"Symbol", fy2016, "A6pC", 1, 1, "H", "Error: Invalid Symbol Entry",
         "Valid Symbol entries are 'A' through 'G' only.  Select OK to continue."},
        {"NegativePercentage", fy2016, "A6pC", 1, 4, "-5", "Error: Invalid Negative 'Percentage_1' Entry",
         "Valid Percentage entries may not be negative numbers.  Select OK to continue."},
        {"PercentageRounded", fy2016, "A6pC", 1, 4, "5.125", "Too Specific Numeric Entry",
         ENTERING("5.125") "2 digits to the right of the decimal point.  Your entry or modification is being rounded.",
         kWarning, Answer::Ok, "5.13"},
        {"PaymentDate", fy2016, "D1", 3.01, 1, "13/45/2016", "Invalid Date Entry",
         ENTERING("13/45/2016") "a date [mm/dd/yyyy].  Your entry or modification is being discarded.  Select OK to "
                                "continue."},
        {"Excluded", fy2016, "B1", 6, "CC_500", "4",
         "Warning: Modifying A Statistic Belonging To An 'Accumulated Costs' Type Cost Center",
         "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' type Cost Center.  "
         "The only change you may make to 'Accumulated Costs' type Cost Centers is to establish one [or more] "
         "exclusions from the 'Accumulated Costs' calculation process.  Select OK to make this exclusion, or Cancel to "
         "abort it.",
         kAsks, Answer::Cancel},
        {"ExcludedBefore", fy2016, "B1", 6, "CC_500", "4",
         "Warning: Modifying An Excluded 'Accumulated Costs' Statistic",
         "The statistic you just modified belongs to a cost center that is an 'Accumulated Costs' type Cost Center and "
         "has previously been excluded from the 'Accumulated Costs' process.  The only change you may make to an "
         "'Accumulated Costs' type Cost Center is to establish or remove exclusions from the 'Accumulated Costs' "
         "calculation process.  Select OK to remove this exclusion, or Cancel to abort this change request.",
         kAsks, Answer::Ok, "4", "INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_500', -1);"},
        {"Recipient", fy2016, "B1", 6, "CC_300", "40",
         "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center",
         "The statistic you just modified belongs to a cost center that is a Recipient Cost Center within the "
         "StatLinks module.  Changing this statistic will establish an override.  Select OK to make this change, or "
         "Cancel to abort it.",
         kAsks, Answer::Ok, "40", "INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);"},
        {"RecipientOverridden", fy2016, "B1", 6, "CC_300", "50",
         "Warning: Modifying A Statistic Belonging To A StatLinks Recipient Cost Center Having An Override Value",
         "The statistic you just modified belongs to a cost center that is a Recipient Cost Center within the "
         "StatLinks module and has also been assigned an override value.  Select Yes to replace the current override "
         "value.  Select No to remove this override altogether.  Select Cancel to abort this change request.",
         kAsksThree, Answer::Yes, "50",
         "INSERT INTO StatLinks (FromCCNum, ToCCNum) VALUES (1, 3);"
         "INSERT INTO B1X (RowCCNum, ColCCNum, Amount) VALUES (6, 'CC_300', 7);"},
        {"StateCode", fy2016, "S2", 1.01, 2, "ILL", "Entry Error", "Please only use the two character state code."},
        {"ZipCode", fy2016, "S2", 1.01, 3, "123", "Entry Error", "Zip code must be formated XXXXX or XXXXX-XXXXX"},
        {"Certification", fy2016, "S2", 2, 3, "12/31/1965", "Entry Error",
         "Certification Dates must be on or after 7/1/1966."},
        {"CertificationNoDate", fy2016, "S2", 2, 3, "soon", "Entry Error", "Invalid date"},
        {"ControlType", fy2016, "S2", 8, 1, "14", "Entry Error",
         "Valid types of controls are one(1) through thirteen(13)."},
        {"LowOrNo", fy2016, "S2", 9, 1, "Q", "Entry Error", "Please enter L or N."},
        {"NumericAnswer", fy2016, "S2", 10, 1, "many", "Entry Error", "This field accepts numeric data only."},
        {"RoundedAnswer", fy2016, "S2", 10, 1, "57056.5", "Entry Error",
         ENTERING("57056.5") "zero digits to the right of the decimal point.  Your entry or modification is being "
                             "rounded.",
         kWarning, Answer::Ok, "57057"},
        {"CodeListed", fy2016, "S3p3", 29.01, 1, "1400", "Duplicate Code", "The code 1400 is already listed.", kStop,
         Answer::Ok, nullptr, "INSERT INTO S3p3 (LineNum, Col_1) VALUES (29, '1400');"},
        {"CodeWithVisits", fy2016, "S3p3", 29, 1, "1500", "Remove Code",
         "The visits and limits of code 1400 on C Part II will be removed.  Do you wish to continue?",
         kYesNo + kQuestion + kDefaultButton2, Answer::No, nullptr,
         "INSERT INTO S3p3 (LineNum, Col_1) VALUES (29, '1400');"
         "CREATE TABLE Cp2m1400 (LineNum CURRENCY, Col_4 DOUBLE, Col_5 DOUBLE, Col_6 DOUBLE, Col_7 DOUBLE, Col_10 "
         "DOUBLE);"
         "INSERT INTO Worksheets (Item, ItemName, Calc_Lvl) VALUES ('Cp2m1400', 'C  Part-2  MSA-1400', 7);"
         "INSERT INTO Cp2m1400 (LineNum, Col_5) VALUES (1, 120);"},
        {"YesOrNo", fy2016, "S2", 14, 1, "Q", "Entry Error", "Please enter Y or N."},
        {"SplitOption", fy2016, "S2", 26, 1, "3", "Entry Error",
         "Valid types of controls are zero(0), one(1) or two(2)."},
        {"DateAvailable", fy2016, "S21", 1, 2, "12/31/1965", "Entry Error", "Enter a valid date."},
        {"Voluntary", fy2016, "S21", 2, 3, "Q", "Entry Error", "Please enter V or I."},
        {"Statement", fy2016, "S21", 4, 2, "Q", "Entry Error", "Please enter A, C or R."},
    };
    return boxes;
}

class CellBoxes : public testing::TestWithParam<CellBox> {
  protected:
    static std::string Table_Value() {
        const CellBox& box = GetParam();
        if (std::string_view(box.item) != "A6pA") return Desk::Stored(box.item, box.line, box.column);
        return db.Read_Row("SELECT Answer FROM A6pA;")["Answer"].Is_Null() ? "" : "an answer";
    }
};

TEST_P(CellBoxes, IsShownToTheLetter) {
    const CellBox& box = GetParam();
    Desk desk(box.year);
    for (const QString& statement : QString(box.before).split(';', Qt::SkipEmptyParts)) {
        db.Execute(Plain_Text(statement));
    }
    desk.Edit(box.item);
    if (desk.Form().Model().Row_Of(box.line.line) < 0) desk.Push("cmdAdd");
    const std::string before = Table_Value();
    ASSERT_TRUE(desk.At(box.line, box.column));
    const std::string place = desk.Cursor();
    desk.Expect(box.title, box.text, box.answer, box.buttons);
    desk.Type_Over(box.typed);
    Desk::Press(Qt::Key_Return);
    EXPECT_TRUE(desk.boxes.Done());
    EXPECT_EQ(desk.boxes.Boxes_Seen(), 1);
    EXPECT_EQ(desk.Editor(), nullptr);
    const bool refused = box.held == nullptr;
    EXPECT_TRUE(!refused || desk.Cursor() == place) << "the cursor left a refused entry";
    EXPECT_EQ(Table_Value(), refused ? before : box.held);
}

INSTANTIATE_TEST_SUITE_P(Forms, CellBoxes, testing::ValuesIn(Boxes()),
                         [](const auto& box) { return std::string(box.param.name); });

// ---- Whether the table above has them all

struct Text {
    QString title, text;
};

// The boxes that the sources of the forms hold: pairs of a title and a text in braces.
std::vector<Text> Texts_Of_The_Forms() {
    static const QString literals = R"re((?:"(?:[^"\\]|\\.)*"\s*)+)re";
    static const QRegularExpression pair("\\{\\s*(kTitle|" + literals + "),\\s*(" + literals + ")\\}");
    static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)*)")re");
    static const QRegularExpression words("[a-z] [a-z]");
    const auto joined = [](const QString& source) {
        QString text;
        for (const auto& part : literal.globalMatch(source)) text += part.captured(1);
        return text;
    };
    std::vector<Text> texts;
    const QDir folder(TALLMAR_SOURCE_DIR "/src/screens");
    for (const QString& name : folder.entryList({"*.cpp", "*.h"})) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        for (const auto& found : pair.globalMatch(source)) {
            const bool shared = found.captured(1) == "kTitle";
            const Text text{shared ? "Entry Error" : joined(found.captured(1)), joined(found.captured(2))};
            // Fields and values of a new row look alike, and so do fields and the reason why they are locked.
            const bool isOfFields = text.title.startsWith("Col_");
            if (shared || (!isOfFields && text.text.contains(words))) texts.push_back(text);
        }
    }
    return texts;
}

// What no cell of a window raises, with the reason.
constexpr const char* kOtherwise[][2] = {
    {"Locked Cell", "the status line tells it"},
    {"Unknown Line", "a window has no line to name"},
    {"Invalid Line", "a window has no line to name"},
    {"Unknown Column", "a window has no column to name"},
    {"Unknown Worksheet", "there is no menu entry for it"},
    {"No Edit Form", "there is no menu entry for it"},
    {"Close form frmEditS2", "the question of all forms stands in its place"},
    {"Remove Hospice", "the removal asks by itself"},
};

TEST(CellBoxesTable, HasEveryBoxOfTheForms) {
    const std::vector<Text> texts = Texts_Of_The_Forms();
    EXPECT_GT(texts.size(), 35U);
    for (const Text& text : texts) {
        const bool otherwise = std::ranges::any_of(kOtherwise, [&](const auto& row) { return text.title == row[0]; });
        // A list of messages shows it, and a dialog of its own.
        const bool elsewhere =
            text.text.startsWith("This answer changes other") || text.text.startsWith("The maximum length of a custom");
        if (otherwise || elsewhere) continue;
        QString pattern = QRegularExpression::escape(text.text);
        for (const char* argument : {"<text>", "<places>", "<length>"}) {
            pattern.replace(QRegularExpression::escape(argument), ".*");
        }
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        EXPECT_TRUE(std::ranges::any_of(
            Boxes(), [&](const CellBox& box) { return text.title == box.title && whole.match(box.text).hasMatch(); }))
            << Plain_Text(text.title) << ": " << Plain_Text(text.text);
    }
}

}  // namespace

}  // namespace tallmar
