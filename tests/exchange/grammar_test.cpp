// The grammar of ISO 10303-21, and how reading goes on after a fault.
#include <gtest/gtest.h>

#include <string>

#include "surveys.h"

namespace exchange::testing {
namespace {

struct Row {
  std::string records;
  std::string reports;
};

void Expect(const Row& row) {
  SCOPED_TRACE(row.records);
  EXPECT_EQ(SurveyLines(File(row.records)), row.reports);
}

TEST(Grammar, EveryFormIsTaken) {
  const Row rows[] = {
      {"#1=A();", ""},
      {"#1 = A ( 1 , -2 , +3 , 0.5 , -1. , 1.E3 , 2.5E-10 , 1.0E+05 ) ;", ""},
      {"#1=A('','it''s','a\nb',\"0\",\"10\",\"3A0F\",.T.,._X1.,$,*);", ""},
      {"#1=A(#2,(#2,(#1)),());#2=B(C(D((1,2))),E($));", ""},
      {"#1=(A()B(1,#1)_C('x'));", ""},
      {"#1=!MY_KEY(!OTHER(1));", ""},
      {"#1=/* a */A/**/(1/* ' ; #2=B( */,\\N\\2)\\F\\;/* ***/", ""},
      {"#18446744073709551615=A(#000018446744073709551615);", ""},
      {"#1=A('\\\\ \\S\\d \\S\\'' \\PB\\ \\X\\E9 \\X2\\03B103B2\\X0\\ \\X4\\0001F600\\X0\\ \\N\\ \\F\\');", ""},
      {"#1=\r\nA(\t1\f)\v;", ""},
      {"#1=A(@12,#STEEL,@STEEL);", ""},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Grammar, AFaultCostsItsRecord) {
  const Row rows[] = {
      {"#1=A(1 2);#2=B();", "3:8 syntax: expected ',' or ')', found an integer\n1/2\n"},
      {"#1=A(1,);#2=B();", "3:8 syntax: expected a value, found ')'\n1/2\n"},
      {"#1=A(,1);#2=B();", "3:6 syntax: expected a value or ')', found ','\n1/2\n"},
      {"#1=A(1)\n#2=B();", "4:1 syntax: expected ';', found a reference\n1/2\n"},
      {"#1=A(1;#2=B();", "3:7 syntax: expected ',' or ')', found ';'\n1/2\n"},
      {"#1=A(1));#2=B();", "3:8 syntax: expected ';', found ')'\n1/2\n"},
      {"#1=A(1\n#2=B();", "4:1 syntax: expected ',' or ')', found a reference\n1/2\n"},
      {"#1=A(1,\n#2=B();", "4:3 syntax: expected ',' or ')', found '='\n1/2\n"},
      {"#1 A();#2=B();", "3:4 syntax: expected '=', found a keyword\n1/2\n"},
      {"#1=1;#2=B();", "3:4 syntax: expected a keyword or '(', found an integer\n1/2\n"},
      {"#1=A;#2=B();", "3:5 syntax: expected '(', found ';'\n1/2\n"},
      {"#1=();#2=B();", "3:5 syntax: expected a keyword, found ')'\n1/2\n"},
      {"#1=(A()1);#2=B();", "3:8 syntax: expected a keyword or ')', found an integer\n1/2\n"},
      {"#1=A(B());#2=B();", "3:8 syntax: expected a value, found ')'\n1/2\n"},
      {"#1=A(B(1,2));#2=B();", "3:9 syntax: expected ')' after the value of a type, found ','\n1/2\n"},
      {"#1=A(B);#2=B();", "3:7 syntax: expected '(', found ')'\n1/2\n"},
      {"#=A();#2=B();", "3:1 syntax: expected digits after '#'\n"},
      {"A();#2=B();", "3:1 syntax: expected a record or ENDSEC, found a keyword\n"},
      {"#1=A(?);#2=B();", "3:6 bad-character: expected a token, found a character that starts none\n1/2\n"},
      {"#1=A(\x01);#2=B(\xC3\xA9);", "3:14 bad-character: expected a token, found a character that starts none\n1/2\n"},
      {"#STEEL=A();#2=B();", "3:1 syntax: expected an instance name, found the name of a constant\n1/2\n"},
      {"#18446744073709551616=A();", "3:1 large-name: expected an instance name of at most 64 bits\n0/1\n"},
      {"#1=A(!);#2=B();", "3:6 syntax: expected a keyword after '!'\n1/2\n"},
      {"#1=A(@);#2=B();", "3:6 syntax: expected digits or a name after '@'\n1/2\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Grammar, AScalarInAnotherFormIsOneReport) {
  const std::string binary = "expected a binary: 0 to 3, then digits 0 to 9 and A to F, in quotes\n";
  const Row rows[] = {
      {"#1=A(.5);", "3:6 bad-number: expected a digit before the point of a real\n0/1\n"},
      {"#1=A(-.5);", "3:6 bad-number: expected a digit before the point of a real\n0/1\n"},
      {"#1=A(1E5);", "3:6 bad-number: expected a point in a real before its exponent\n0/1\n"},
      {"#1=A(1.E);", "3:8 bad-number: expected digits in an exponent\n0/1\n"},
      {"#1=A(1.E+);", "3:8 bad-number: expected digits in an exponent\n0/1\n"},
      {"#1=A(-);", "3:6 bad-number: expected a digit after the sign\n0/1\n"},
      {"#1=A(.STEEL);", "3:6 bad-enumerator: expected an enumerator, such as .STEEL.\n0/1\n"},
      {"#1=A(..);", "3:6 bad-enumerator: expected an enumerator, such as .STEEL.\n0/1\n"},
      {"#1=A(\"\");", "3:6 bad-binary: " + binary + "0/1\n"},
      {"#1=A(\"4F\");", "3:6 bad-binary: " + binary + "0/1\n"},
      {"#1=A(\"1\");", "3:6 bad-binary: " + binary + "0/1\n"},
      {"#1=A(\"0F);#2=B();", "3:6 bad-binary: " + binary + "1/2\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Grammar, WhatReadersTakeIsAWarning) {
  const std::string raw = "raw-character: expected a directive, such as \\X2\\, in place of this character\n";
  const Row rows[] = {
      {"#1=Wall(1.e5,.Steel.);",
       "3:5 lower-case: expected capitals in a keyword\n3:11 lower-case: expected 'E' before an exponent, found 'e'\n"
       "3:16 lower-case: expected capitals in an enumerator\n"},
      {"#1=A(\"0aF\");", "3:8 lower-case: expected digits A to F in capitals\n"},
      {"#1=A('\\X2\\00e9\\X0\\');", "3:11 lower-case: expected digits A to F in capitals\n"},
      {"#1=A('\xC3\xA9t\xE9\t');", "3:7 " + raw + "3:9 " + raw + "3:10 " + raw},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Grammar, ADirectiveInAnotherFormLeavesTheRecord) {
  const std::string unknown = "bad-directive: expected a directive after '\\', or '\\\\'\n";
  const std::string four = "bad-directive: expected groups of 4 digits 0 to 9, A to F, and then \\X0\\\n";
  const std::string eight = "bad-directive: expected groups of 8 digits 0 to 9, A to F, and then \\X0\\\n";
  const std::string two = "bad-directive: expected two digits 0 to 9, A to F after \\X\\\n";
  const Row rows[] = {
      {"#1=A('C:\\dir');", "3:9 " + unknown},
      {"#1=A('\\');", "3:7 " + unknown},
      {"#1=A('C:\\S\\');#2=B('x');", "3:9 " + unknown},  // the apostrophe ends the text
      {"#1=A('\\PJ\\');", "3:7 " + unknown + "3:10 " + unknown},
      {"#1=A('\\S\\\x80');", "3:7 " + unknown + "3:9 " + unknown +
                                 "3:10 raw-character: expected a directive, such as "
                                 "\\X2\\, in place of this character\n"},
      {"#1=A('\\X\\G0');", "3:10 " + two},
      {"#1=A('\\X2\\03B\\X0\\');", "3:7 " + four},
      {"#1=A('\\X2\\\\X0\\');", "3:7 " + four + "3:11 " + unknown + "3:14 " + unknown},
      {"#1=A('\\X2\\03B1');", "3:7 " + four},
      {"#1=A('\\X4\\03B1\\X0\\');", "3:7 " + eight},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.records);
    // What follows the first report depends on how much of the directive is passed over.
    const std::string lines = SurveyLines(File(row.records));
    EXPECT_EQ(lines.substr(0, lines.find('\n') + 1), row.reports.substr(0, row.reports.find('\n') + 1));
    EXPECT_EQ(lines.find("0/1"), std::string::npos);
  }
}

TEST(Grammar, AnOpenTextEndsBeforeTheNextStatement) {
  const Row rows[] = {
      {"#1=A('x);\n#2=B('y');\n#3=C();", "3:6 open-text: expected ' at the end of this text\n2/3\n"},
      {"#1=A('x);\n#2=B();", "3:6 open-text: expected ' at the end of this text\n1/2\n"},
      {"#1=A('x);", "3:6 open-text: expected ' at the end of this text\n0/1\n"},
      {"#1=A('x',2,'y);\n#2=B('y');\n", "3:12 open-text: expected ' at the end of this text\n1/2\n"},
      {"#1=A('a\n#2=B(\nb');", ""},  // this one has an end
      {"?'\n#2=B('y');", "3:1 bad-character: expected a token, found a character that starts none\n"},
  };
  for (const Row& row : rows) {
    std::string text = File(row.records);
    text.replace(text.rfind("ENDSEC;END"), 7, "ENDSEC ;\n");
    SCOPED_TRACE(text);
    EXPECT_EQ(SurveyLines(text), row.reports);
  }
}

TEST(Grammar, AnOpenCommentEndsBeforeTheNextStatement) {
  const Row rows[] = {
      {"#1=A();/* x\n#2=B();", "3:8 open-comment: expected '*/' at the end of this comment\n"},
      {"#1=A(1,/* x\n#2=B();",
       "3:8 open-comment: expected '*/' at the end of this comment\n"
       "4:3 syntax: expected ',' or ')', found '='\n1/2\n"},
      {"#1=A();/* x\n#2=B();/*\n#3=C();",
       "3:8 open-comment: expected '*/' at the end of this comment\n"
       "4:8 open-comment: expected '*/' at the end of this comment\n"},
      {"#1=A();/* x\n#2=B();*/", ""},  // this one has an end
  };
  for (const Row& row : rows) Expect(row);
  EXPECT_EQ(SurveyLines(std::string(kHead) + "\nDATA;\n#1=A();/* x"),
            "3:8 open-comment: expected '*/' at the end of this comment\n"
            "3:12 missing-part: expected ENDSEC; at the end of the section DATA\n"
            "3:12 missing-part: expected END-ISO-10303-21; before the end of the file\n");
}

TEST(Grammar, ScopesOfEditionOneHoldRecords) {
  const Row rows[] = {
      {"#1=&SCOPE #2=A();#3=&SCOPE ENDSCOPE B(#2);ENDSCOPE/#2,#3/C(#2);#4=D(#3);", ""},
      {"#1=&SCOPE #2=A(;ENDSCOPE (C()D(#2));", "3:16 syntax: expected a value or ')', found ';'\n1/2\n"},
      {"#1=&SCOPE ENDSCOPE/#1 C();", "3:23 syntax: expected ',' or '/', found a keyword\n0/1\n"},
      {"#1=&SCOPE ENDSCOPE/C();", "3:20 syntax: expected a reference, found a keyword\n0/1\n"},
      {"#1=&SCOPE ENDSCOPE;", "3:19 syntax: expected a keyword or '(', found ';'\n0/1\n"},
      {"#1=&SCOPE #2=A(#1);", "3:1 missing-part: expected ENDSCOPE for this scope\n1/2\n"},
      {"#1=A();ENDSCOPE;", "3:8 syntax: expected a record or ENDSEC, found a keyword\n"},
      {"#1=&OTHER;", "3:4 bad-character: expected a token, found a character that starts none\n0/1\n"},
      {"#1=A(/);", "3:6 syntax: expected a value or ')', found '/'\n0/1\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Grammar, NamesAreCheckedWhenAllAreKnown) {
  const Row rows[] = {
      {"#1=A(#2);#2=B(#1);", ""},
      {"#1=A(#3);#2=B(#4,(#3));",
       "3:6 dangling-reference: expected the name of a record, no record is called #3\n"
       "3:15 dangling-reference: expected the name of a record, no record is called #4\n"
       "3:19 dangling-reference: expected the name of a record, no record is called #3\n"},
      {"#1=A();#01=B();", "3:8 doubled-name: expected another name, #1 is that of an earlier record\n"},
      // The name of a record that cannot be read is known all the same.
      {"#1=A(#2);#2=B(;", "3:15 syntax: expected a value or ')', found ';'\n1/2\n"},
  };
  for (const Row& row : rows) Expect(row);
}

}  // namespace
}  // namespace exchange::testing
