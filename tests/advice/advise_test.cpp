// What is advised on small texts, each with a trouble of its own.
#include "advice/advising.hpp"

namespace {

using test::advice_on;
using test::expect_advice;

TEST(Advise, FindsDelimiters) {
    expect_advice({
        {"comma", u"city,people\nBern,134591\nGenf,203856\nChur,37106\n", "by ','; 0>1; city text, people number"},
        {"semicolon beside commas in the cells", u"item;size\nbolt, hex;8\nnut, hex;10\npin, split;3\n",
         "by ';'; 0>1; item text, size number"},
        {"tab", u"id\tnote\n1\tall is well\n2\tto be read again\n3\tgone, it seems\n", "by '\\t'; 0>1; id number, note text"},
        {"bar", u"7|ab cd|1,5\n8|ef gh|2,5\n9|ij kl|3,5\n", "by '|'; >0; number, text, number"},
        {"circumflex", u"id^city^rate\n1^Bern^2.5\n2^Genf^3.5\n3^Chur^4.5\n", "by '^'; 0>1; id number, city text, rate number"},
        {"control character", u"1\u001Fab\u001F3.5\n2\u001Fcd\u001F4.5\n3\u001Fef\u001F5.5\n",
         "by '\\u001F'; >0; number, text, number"},
        {"sign beyond ASCII", u"1\u00A6ab\u00A63.5\n2\u00A6cd\u00A64.5\n3\u00A6ef\u00A65.5\n",
         "by '\\u00A6'; >0; number, text, number"},
        {"two bars", u"id||name||rate\n1||ab cd||2.5\n2||ef||3.5\n3||gh||4.5\n",
         "by '||'; 0>1; id number, name text, rate number"},
        {"two colons", u"1::ab::3.5\n2::cd::4.5\n3::ef::5.5\n", "by '::'; >0; number, text, number"},
        {"three bars", u"1|||ab|||3.5\n2|||cd|||4.5\n3|||ef|||5.5\n", "by '|||'; >0; number, text, number"},
        {"slashes with blanks around them", u"red / 12 / 3.5\nblue / 15 / 4.5\ngreen / 11 / 5.5\n",
         "by '/'; >0; text, number, number"},
        {"empty cells and a full last column", u"a|b|c\n||1\n2||3\n||4\n5|6|7\n",
         "by '|'; 0>1; a number -2, b number -3, c number"},
        {"days and times, which could be one value each",
         u"town,hour\n1995-05-01,13:38:46\n2017-06-21,21:28:13\n1997-12-26,13:38:41\n", "by ','; 0>1; town date, hour duration"},
        {"times and dates, whose marks are no delimiters",
         u"2024-03-01,06:18:51,1.5\n2024-03-02,07:20:11,2.5\n2024-03-03,08:01:00,3.5\n", "by ','; >0; date, duration, number"},
    });
}

TEST(Advise, FindsQuotes) {
    expect_advice({
        {"delimiters and line breaks in quotes", u"id,what\n1,\"a, b\"\n2,\"c\nd, e\"\n3,\"say \"\"f\"\"\"\n4,g\n",
         "by ','; 0>1; id number, what text"},
        {"apostrophes that frame", u"'ab, c';'1'\n'de, f';'2'\n'gh, i';'3'\n", "by ';', quote '; >0; text, number"},
        {"apostrophes around the few cells that need them",
         u"id;what;rate\n1;bolt;2.5\n2;pin;3.5\n3;nut;1.5\n4;'bolt; hex';4.5\n5;pipe;3.5\n6;gate;5.5\n7;pump;6.5\n8;valve;2.5\n",
         "by ';', quote '; 0>1; id number, what text, rate number"},
        {"apostrophes because of others inside alone",
         u"id,what\n1,bolt\n2,'''pin'' small'\n3,nut\n4,long pipe\n5,gate\n6,old pump\n",
         "by ',', quote '; 0>1; id number, what text"},
        {"apostrophes in front of words and behind them", u"1;'tis so\n2;it's so\n3;he's in\n4;the lads' own\n5;'twas\n6;she's\n",
         "by ';'; >0; number, text"},
        {"apostrophes inside words", u"it's;1\nhe's;2\nshe's;3\n", "by ';'; >0; text, number"},
        {"tildes that frame", u"~id~,~what~\n~1~,~a, b~\n~2~,~c, d~\n~3~,~e, f~\n", "by ',', quote ~; 0>1; id number, what text"},
        {"inches, which are no quotes", u"1;12\" pipe;3\n2;9\" pipe;4\n3;8\" pipe;5\n", "by ';'; >0; number, text, number"},
        {"a quote at the start of a cell alone", u"1;\"A\" road;3\n2;\"B\" road;4\n3;side;5\n",
         "by ';'; >0; number, text, number"},
    });
}

TEST(Advise, FindsComments) {
    expect_advice({
        {"above and between the rows", u"# box 7\na,b\n1,2\n# cleaned, at noon\n3,4\n5,6\n",
         "by ',', comment #; 1>2; a number, b number"},
        {"percent signs", u"% made by hand\n% twice\na;b\n1;2\n3;4\n", "by ';', comment %; 2>3; a number, b number"},
        {"names in a comment", u"# t x y\n0.5 1 2\n1.0 3 4\n1.5 5 6\n",
         "aligned, comment #, skip, drop; 0>1; t number, x number, y number"},
        {"words in capitals", u"REM list of parts\nREM second run\n1;2;3\n4;5;6\n7;8;9\n",
         "by ';', comment REM; >2; number, number, number"},
        {"slashes", u"// one\n// two\n1;2;3\n4;5;6\n7;8;9\n", "by ';', comment //; >2; number, number, number"},
        {"over several lines", u"/* made by hand,\n   twice; see log */\na;b\n1;2\n/* pause\n   at noon */\n3;4\n5;6\n",
         "by ';', comment /*; 2>3; a number, b number"},
        {"numbers that begin with the sign of a comment", u"#1,ab,2.5\n#2,cd,3.5\n#3,ef,4.5\n", "by ','; >0; text, text, number"},
        {"rows that begin with the delimiter", u"part;place;sum\nbolt;A;1.5\n;B;2.5\n;C;3.5\nnut;D;4.5\npin;E;5.5\n",
         "by ';'; 0>1; part text -2, place text, sum number"},
        {"such rows of two columns", u"id;place\n1;A b\n;C d\n;E f\n4;G h\n5;I j\n6;K l\n",
         "by ';'; 0>1; id number -2, place text"},
        {"semicolons before commas", u"; made by hand; twice\n; see the log\na,b\n1,2\n3,4\n5,6\n",
         "by ',', comment ;; 2>3; a number, b number"},
        {"negative numbers", u"-1,2\n-3,4\n-5,6\n", "by ','; >0; number, number"},
    });
}

TEST(Advise, FindsColumnsAtBlanks) {
    expect_advice({
        {"one blank", u"ab 1 2.5\ncd 3 4.5\nefg 5 6.5\n", "aligned, skip, drop; >0; text, number, number"},
        {"aligned numbers", u"   t      x\n 0.5   12.5\n 1.0    3.5\n10.5  104.0\n",
         "aligned, skip, drop; 0>1; t number, x number"},
        {"texts with blanks", u"Bern       7  high up\nLa Neuve   8  low\nSaint Gall 9  very high\nChur      10  high\n",
         "widths 11 3 9; >0; text, number, text"},
        {"a word of the heading over nothing",
         u"A:  depth   width  left  right\n    12.00   101.7   1.5    2.5\n    12.05   101.3   1.5    2.5\n"
         u"    12.10    99.8   1.5    2.5\n    12.15   100.4   1.5    2.5\n    12.20   101.0   1.5    2.5\n",
         "widths 12 8 7 3; 0>1; A:  depth number, width number, left number, right number"},
        {"a ruler", u"name       size\n---------- ----\nLong Valley   12\nHill           5\nOld Town Road  7\n",
         "widths 14 2; 0>2; name text, size number"},
        {"a heading over columns with empty cells",
         u"name      code  left\nAda Long  X1       3\nBo                12\nCy Small  Y22      5\nDee       Z        9\n",
         "widths 10 6 4; 0>1; name text, code text -1, left number"},
        {"records of one length", u"00120240131CHF0000150\n00220240201EUR0000275\n00320240201CHF0001050\n00420240203USD0000900\n",
         "widths 11 3 7; >0; number, text, number"},
    });
}

TEST(Advise, TakesBarsAtBothEndsOff) {
    expect_advice({
        {"without a ruler", u"|id|name|\n|1|ab|\n|2|cd|\n|3|ef|\n", "by '|', skip, drop; 0>1; id number, name text"},
        {"with a ruler", u"| id | name |\n|----|------|\n| 1  | ab   |\n| 2  | cd   |\n| 3  | ef   |\n",
         "by '|', skip, drop; 0>2; id number, name text"},
        {"a box", u"+----+------+\n| id | name |\n+----+------+\n| 1  | ab   |\n| 2  | cd   |\n| 3  | ef   |\n+----+------+\n",
         "by '|', skip, drop; 1>3; id number, name text"},
        {"a box of drawn lines",
         u"\u250C\u2500\u2500\u2500\u2500\u252C\u2500\u2500\u2500\u2500\u2510\n\u2502 id \u2502 of \u2502\n"
         u"\u251C\u2500\u2500\u2500\u2500\u253C\u2500\u2500\u2500\u2500\u2524\n\u2502 1  \u2502 ab \u2502\n"
         u"\u2502 2  \u2502 cd \u2502\n\u2502 3  \u2502 ef \u2502\n"
         u"\u2514\u2500\u2500\u2500\u2500\u2534\u2500\u2500\u2500\u2500\u2518\n",
         "by '\\u2502', skip, drop; 1>3; id number, of text"},
        {"delimiters at the ends of lines", u"1;2;\n3;4;\n5;6;\n", "by ';'; >0; number, number, nothing -3"},
        {"several delimiters there", u"1;2;;;\n3;4;;;\n5;6;;;\n", "by ';', drop; >0; number, number"},
    });
}

TEST(Advise, FindsRecordsOfSeveralKinds) {
    expect_advice({
        {"segments that end with a sign",
         u"ST*850*0001~\nBEG*00*SA*4711**20240131~\nPO1*1*12*EA*9.5~\nPID*F****bolt~\nPO1*2*5*EA*3.25~\nPID*F****nut~\nSE*6*0001~"
         u"\n",
         "by '*'; >0; text, number, number -2, text -4, text -5, text -4"},
        {"kinds that come again", u"HD|1|2024-01-31\nPO|1|ab|7|x\nPO|2|cd|8|y\nNT|ok\nPO|3|ef|9|z\nNT|gone\nPO|4|ef|9|z\n",
         "by '|'; >0; text, number, text -2, number -3, text -3"},
    });
}

TEST(Advise, TellsMarksByAllTheNumbersOfAColumn) {
    std::u16string late = u"site;sum\n";
    for (int row = 0; row < 20; ++row) {
        late += u"mill;2.5\n";
    }
    const std::pair<std::u16string, const char*> cases[] = {
        {u"site;stock\nmill;1.234\ngate;829\nhall;12.505\nroom;-22\nyard;7\n", "?."},
        {u"site;share;count\nmill;1.234;5\ngate;2.345;829\nhall;3.456;7\n", "."}, // of another column
        {late, "."},
        {late + u"gate;5,677.92\n", ".,"},
    };
    for (const auto& [text, marks] : cases) {
        EXPECT_EQ(test::marks_of(advice_on(text).proposals.front()), marks) << test::shown(text);
    }
}

TEST(Advise, FindsWhereTheTableBegins) {
    expect_advice({
        {"a title", u"Sales of May, all shops\nday,shop,sum\n1,East,12.5\n2,West,13.5\n3,East,7.5\n",
         "by ','; 1>2; day number, shop text, sum number"},
        {"a preamble of another layout", u"Unit: 7\nRange: 10, low\n\nday;sum\n1;2.5\n2;3.5\n3;4.5\n",
         "by ';'; 3>4; day number, sum number"},
        {"a title that has as many words as there are names",
         u"Stock, main store\n\nsite,hour\nmill,10:12:44\ngate,09:16:22\nhall,03:29:08\n",
         "by ','; 2>3; site text, hour duration"},
        {"such a title above quoted numbers",
         u"Stock, main store\n\n\"site\",\"hands\"\n\"mill\",\"-19\"\n\"gate\",\"963\"\n\"hall\",\"77\"\n",
         "by ','; 2>3; site text, hands number"},
        {"such a title above quoted dates",
         u"Stock, main store\n\n\"city\",\"day\"\n\"heavy mill\",\"2004-03-19\"\n\"old gate\",\"2008-04-16\"\n"
         u"\"a hall\",\"2006-04-02\"\n",
         "by ','; 2>3; city text, day date"},
        {"a title that is like the rows", u"Stock, Main Store\n\nname,city\nNut Old,Bern\nPin Red,Main Store\nBolt Hex,Genf\n",
         "by ','; 2>3; name text, city text"},
        {"a first row with a blank line below it", u"Nut Old,Bern\n\nPin Red,Chur\nBolt Hex,Genf\nRod Low,Thun\n",
         "by ','; >0; text, text"},
        {"names over numbers in quotes among texts",
         u"\"Street Nut\",\"fone\",\"Mill North\"\n\"Old Pin\",\"9271.47\",\"New Lane\"\n\"Red Gate\",\"319.15\",\"Long Road\"\n"
         u"\"Low Hill\",\"309.12\",\"Old Dock\"\n",
         "by ','; 0>1; Street Nut text, fone number, Mill North text"},
        {"no value in the first row of numbers in quotes",
         u"\"Mill\",\"n.a.\",\"A\"\n\"Gate\",\"2\",\"B\"\n\"Hall\",\"3\",\"C\"\n\"Dock\",\"4\",\"D\"\n",
         "by ','; >0; text, number, text"},
        {"units below the names", u"time;speed\ns;m/s\n0.5;2.5\n1.0;3.5\n1.5;4.0\n", "by ';'; 0>2; time number, speed number"},
        {"no names", u"1;ab;2.5\n2;cd;3.5\n3;ef;4.5\n", "by ';'; >0; number, text, number"},
        {"names over text alone", u"first_name,town\nAda,Bern\nBo,Chur\nCy,Bern\nDee,Chur\n",
         "by ','; 0>1; first_name text, town text"},
        {"text alone without names", u"Ada,Bern\nBo,Chur\nCy,Bern\nDee,Chur\nEd,Bern\n", "by ','; >0; text, text"},
        {"years as names", u"land;2019;2020;2021\nCH;1.5;2.5;3.5\nDE;4.5;5.5;6.5\nFR;7.5;8.5;9.5\n",
         "by ';'; 0>1; land text, 2019 number, 2020 number, 2021 number"},
        {"numbers that count on as names", u"well;1;2;3\nA;0.5;1.5;2.5\nB;4.5;0.5;6.5\nC;7.5;8.5;0.5\n",
         "by ';'; 0>1; well text, 1 number, 2 number, 3 number"},
        {"such numbers in all rows", u"A;1;2;3\nB;4;5;6\nC;7;8;9\n", "by ';'; >0; text, number, number, number"},
        {"numbered names over text", u"part1,part2\nbolt,pin\nnut,gate\npump,valve\n", "by ','; 0>1; part1 text, part2 text"},
        {"numbered values", u"bolt1,bolt2\nbolt3,bolt5\nbolt4,bolt9\nbolt7,bolt8\n", "by ','; >0; text, text"},
        {"names of rows without a name above", u"sum\tleft\nBern\t12\t7.5\nGenf\t15\t8.5\nChur\t11\t9.5\n",
         "by '\\t'; 0>1; text, sum number, left number"},
        {"such names with blanks in quotes", u"\"the sum\" \"what is left\"\n\"1\" 12 7.5\n\"2\" 15 8.5\n\"3\" 11 9.5\n",
         "aligned, skip, drop; 0>1; number, the sum number, what is left number"},
        {"delimiters at the ends of rows, but not of names", u"t;sum;left\n1;12;7.5;\n2;15;8.5;\n3;11;9.5;\n",
         "by ';'; 0>1; t number, sum number, left number, nothing -3"},
        {"a line one short that names nothing", u"12;15\nBern;12;7.5\nGenf;15;8.5\nChur;11;9.5\n",
         "by ';'; >1; text, number, number"},
        {"names between other signs", u"# time [s] | depth [m] | rate [m/s]\n1 0.5 2.5\n2 0.7 3.5\n3 0.9 4.5\n4 1.1 5.5\n",
         "aligned, comment #, skip, drop; 0>1; time [s] number, depth [m] number, rate [m/s] number"},
        {"names with single blanks that end where the numbers do",
         u"     open hours north side south side\n"
         u"Bern      12.50        7.5       12.1\n"
         u"Genf       5.00       10.5       21.7\n"
         u"Chur      11.25       12.5        9.3\n"
         u"Brig      14.75        9.5       13.3\n"
         u"Thun       8.50       12.0       14.2\n",
         "widths 10 12 11 4; 0>1; text, open hours number, north side number, south side number"},
        {"keys with their colons", u"Name: Ada\nAge: 31\nName: Bo\nAge: 28\nName: Cy\nAge: 44\n",
         "aligned, skip, drop; >0; text, number"},
        {"names in quotes", u"\"the day\";\"the sum\"\n\"1\";2.5\n\"2\";3.5\n\"3\";4.5\n",
         "by ';'; 0>1; the day number, the sum number"},
        {"a row that nothing follows", u"Name,a", "by ','; >0; text, text"},
        {"blank lines in front", u"\n\n\na;b\n1;2\n3;4\n5;6\n", "by ';'; 3>4; a number, b number"},
        {"names twice, the second in other words", u"t;p\nTime;Pressure\n1;2.5\n2;3.5\n3;4.5\n",
         "by ';'; 0>2; t number, p number"},
        {"a line break in the names", u"\"a\nday\";b\n1;2\n3;4\n5;6\n", "by ';'; 0>2; a\\nday number, b number"},
        {"a row without values below such names", u"\"a\n\nday\";b\n;\n1;2\n3;4\n5;6\n",
         "by ';'; 0>3; a\\n\\nday number -1, b number -1"},
        {"carriage returns", u"a;b\r\n1;2\r\n3;4\r\n5;6\r\n", "by ';'; 0>1; a number, b number"},
        {"the last line is not ended", u"a;b\n1;2\n3;4\n5;6", "by ';'; 0>1; a number, b number"},
    });
}

/// Some lines of one length in the middle of a table look as if it began there.
TEST(Advise, TakesNoRowForAHeading) {
    const std::u16string names[] = {u"adder  ", u"atlas  ", u"builder", u"cp     ", u"dialer ", u"editor ", u"fonts  "};
    const std::u16string values[] = {u"3.134 ", u"43-1  ", u"1.0~2 ", u"4.12-2"};
    const std::u16string texts[] = {u"adds users", u"draws maps at once", u"builds it",  u"copies all that is left",
                                    u"calls",      u"prints and reads",   u"shows games"};
    std::u16string text = u"||/ Name    Version Text\n+++-=======-=======-===========\n";
    for (std::size_t row = 0; row < 28; ++row) {
        text += u"ii  " + names[row % 7] + u" " + values[row % 4] + u"  " + texts[row < 8 || row > 10 ? row % 7 : 0] + u"\n";
    }
    EXPECT_EQ(test::start_of(advice_on(text).proposals.front()), "0>2");
}

TEST(Advise, TellsColumns) {
    expect_advice({
        {"classes", u"n;d;t;w;h\n1;2024-01-31;06:18:51;ab;0x1F\n2;2024-02-01;07:20:11;cd;0x2A\n3;2024-02-02;08:01:00;ef;0xB\n",
         "by ';'; 0>1; n number, d date, t duration, w text, h hex"},
        {"days in quotes beside thousands",
         u"day;sum\n\"02.01.2023\";\"2.000,50\"\n\"03.01.2023\";\"1.900,00\"\n\"04.01.2023\";\"3,50\"\n",
         "by ';'; 0>1; day date, sum number"},
        {"missing values", u"a,b,c\n1,,NA\n2,x,NA\n,y,NA\n4,z,NA\n", "by ','; 0>1; a number -1, b text -1, c nothing -4"},
        {"a row of data above the regular ones", u"a;b;c\n1;2\n3;4\n5;6;7\n8;;9\n1;2;3\n4;5;6\n7;8;9\n",
         "by ';'; 0>1; a number, b number -1, c number -2"},
        {"rows that lack cells", u"a,b,c\n1,2,3\n4,5\n7,8,9\n10,11,12\n13,14,15\n16,17,18\n",
         "by ','; 0>1; a number, b number, c number -1"},
        {"rows that do not agree at all", u"size,what,left\n1,27,,\"too long\"\n,\"too short\"\n0,some types ... oh,17\n",
         "by ','; 0>1; size number -1, what text, left number -2"},
        {"empty names", u",b,\n1,2,3\n4,5,6\n7,8,9\n", "by ','; 0>1; number, b number, number"},
    });
}

TEST(Advise, CountsLinesBehindTheSample) {
    // Comments are no rows: the sample ends behind what as many raw lines would hold.
    const std::u16string text = u"# one\n# two\n# three\na;b\n1;2\n3;4\n5;6\n7;8\n";
    for (const std::size_t rows : {4U, 5U, 6U}) {
        EXPECT_EQ(test::shown(advice_on(text, {}, rows).proposals.front()), "by ';', comment #; 3>4; a number, b number") << rows;
    }
    // Nor do lines in quotes end a row.
    const std::u16string quoted = u"\"by hand,\nin\nthe\nyear\n2024,\nat home\"\nday,sum\n1,2\n3,4\n5,6\n7,8\n";
    EXPECT_EQ(test::start_of(advice_on(quoted, {}, 5).proposals.front()), "6>7");
}

struct MarkCase {
    const char* name;
    std::u16string text;
    std::string expected; ///< decimal mark, `?` for none, and thousands separator
};

TEST(Advise, FindsTheMarksOfNumbers) {
    const MarkCase cases[] = {
        {"decimal points", u"1.5;2.25\n3.5;4.75\n", "."},
        {"decimal commas", u"1,5;2,25\n3,5;4,75\n", ","},
        {"both, European", u"1.234,5;7\n2.345,75;8\n", ",."},
        {"both, American", u"1,234.5;7\n2,345.75;8\n", ".,"},
        {"points of dates are none", u"26.01.2022;409,49\n27.01.2022;12,50\n28.01.2022;0,75\n", ","},
        {"short dates and numbers", u"12.1;3,5\n13.1;4,5\n14.2;5,5\n", "?"},
        {"groups of three at commas", u"1,234;5\n12,345;6\n123,456;7\n", "?,"},
        {"three decimals at points", u"1.234;5\n12.345;6\n0.456;7\n", "."},
        {"whole numbers", u"1;2\n3;4\n5;6\n", "?"},
        {"in quotes", u"\"0,12\",\"7\"\n\"0,15\",\"8\"\n\"1,20\",\"9\"\n", ","},
        {"money and shares", u"$1,234.50;5.5%\n$12.00;6.5%\n$7.25;7.5%\n", ".,"},
    };
    for (const MarkCase& c : cases) {
        EXPECT_EQ(test::marks_of(advice_on(c.text).proposals.front()), c.expected) << c.name;
    }
}

TEST(Advise, SaysThatThereIsNoTable) {
    const std::pair<const char*, std::u16string> cases[] = {
        {"nothing", u""},
        {"blank lines", u"\n \n\t\n"},
        {"one word", u"word"},
        {"a list of words", u"apple\npear\nquince\nplum\n"},
        {"a log", u"2024-03-01 06:18:51,123 INFO main: started with 3 workers\n"
                  u"2024-03-01 06:18:52,007 WARN pool: slow answer, tried again\n"
                  u"2024-03-01 06:19:10,250 INFO main: all is well\n2024-03-01 06:19:12,999 ERROR db: lost, gave up\n"},
        {"a poem", u"The sea was calm, the moon was high,\nand nobody was there to see\nthe little boats that drifted by,\n"
                   u"so quiet, and so far from me.\n"},
        {"source code", u"int main(int argc, char** argv) {\n    if (argc < 2) {\n        return 1;\n    }\n"
                        u"    for (int i = 0; i < argc; ++i) {\n        print(argv[i], i);\n    }\n    return 0;\n}\n"},
        {"nested values", u"{\n  \"name\": \"ab\",\n  \"sizes\": [\n    1,\n    2,\n    3\n  ],\n  \"open\": true\n}\n"},
        {"objects", u"{\"a\":1,\"b\":\"x\"}\n{\"a\":2,\"b\":\"y\"}\n{\"a\":3,\"b\":\"z\"}\n"},
        {"indented code",
         u"def one(x):\n    y = x + 1\n    return y\n\ndef two(x):\n    z = one(x)\n    w = z * x\n    return w\n\n"
         u"class Pair:\n    left = None\n    right = None\n"},
        {"dates alone", u"2024-01-31\n2024-02-01\n2024-02-02\n2024-02-05\n"},
        {"addresses of pages", u"https://a.example/x?y=1\nhttps://b.example/z?y=2\nhttps://c.example/v?y=3\n"},
        {"numbers with commas", u"1,05\n2,10\n3,75\n12,00\n"},
        {"the end of the text at its start", u"\uFFFFa,b\n1,2\n3,4\n"},
    };
    for (const auto& [name, text] : cases) {
        const test::Advice found = advice_on(text);
        EXPECT_FALSE(found.is_table) << name << ": " << test::shown(found.proposals.front());
    }
}

} // namespace
