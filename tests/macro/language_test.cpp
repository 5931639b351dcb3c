// The language, row by row: each row's commands run on a fresh text, one a
// line, and the last one's value or error is checked.
#include "macro_test_support.h"

TEST_F(MacroTest, OperatorsBindByTheirPriorityAndAssociateLeft)
{
    const LanguageRow rows[] = {
        {"1+2*3", "7"},
        {"(1+2)*3", "9"},
        {"2^3^2", "64"},
        {"2*3^2", "18"},
        {"-2^2", "4"},
        {"2+3*4^2-1", "49"},
        {"1+2<<3", "24"},
        {"1<<2+1", "8"},
        {"12&10?6", "14"},
        {"5?1|2", "6"},
        {"1|2?3", "1"},
        {"1|2<3", "0"},
        {"3>2>1", "0"},
        {"1<2==1", "1"},
        {"1+1==2", "1"},
        {"A=1+2:A*2", "6"},
        {"1:2:3", "3"},
        {"A=1:(A=2)+A", "4"},
        // Nine pending operators fit on one level, a tenth doesn't; a
        // parenthesis starts a fresh level.
        {"0:1<1|1?1&1<<1+1*1^1", "0"},
        {"1:1=1<1|1?1&1<<1+1*1^1", "#210"},
        {"1:A=(1<1|1?1&1<<1+1*1^1)", "0"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, IntegerOperatorsWrapWithoutTrapping)
{
    const LanguageRow rows[] = {
        {"7/2", "3"},
        {"-7/2", "-3"},
        {"-5/2", "-2"},
        {"-5%2", "-1"},
        {"5%-2", "1"},
        {"1/0", "#219"},
        {"1%0", "#215"},
        {"2147483647+1", "-2147483648"},
        {"-2147483647-2", "2147483647"},
        {"65536*65536", "0"},
        {"-2147483648*-1", "-2147483648"},
        {"-2147483648/-1", "-2147483648"},
        {"-2147483648%-1", "0"},
        {"-(-2147483648)", "-2147483648"},
        {"4294967297", "1"},
        {"2^31", "-2147483648"},
        {"2^32", "0"},
        {"3^0", "1"},
        {"0^0", "1"},
        {"(-3)^3", "-27"},
        {"2^-1", "#215"},
        {"1<<31", "-2147483648"},
        {"1<<32", "0"},
        {"1<<63", "0"},
        {"1<<64", "1"},
        {"1<<-1", "0"},
        {"-8>>1", "-4"},
        {"-1>>40", "-1"},
        {"8>>33", "0"},
        {"6&3", "2"},
        {"6|3", "7"},
        {"6?3", "5"},
        {"-1<1", "1"},
        {"2<1", "0"},
        {"2>1", "1"},
        {"1<=1", "1"},
        {"2>=3", "0"},
        {"1==1", "1"},
        {"1<>1", "0"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, SignsTakeOneOperand)
{
    const LanguageRow rows[] = {
        {"1--2", "3"},
        {"1- -2", "3"},
        {"1+-2", "-1"},
        {"+5", "5"},
        {"-A", "0"},
        {"--2", "#208"},
        {"- +2", "#208"},
        {"-", "#207"},
        {"1+-", "#207"},
        {"-\"a\"", "#232"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, NumberLiteralsInEveryRadix)
{
    const LanguageRow rows[] = {
        {"007", "7"},
        {"$1F", "31"},
        {"0X1F", "31"},
        {"&H1F", "31"},
        {"&D19", "19"},
        {"&O17", "15"},
        {"&B101", "5"},
        {"$FFFFFFFF", "-1"},
        {"$", "#206"},
        {"0X", "#206"},
        {"&H", "#206"},
        {"&B2", "#206"},
        {"&O8", "#206"},
        {"&Z1", "#211"},
        {"$1f", "#213"},
        {"0x1F", "#213"},
        {"12AB", "#213"},
        {"@", "#211"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, StringsTheirOperatorsAndComments)
{
    const LanguageRow rows[] = {
        {"\"abc\"", "\"abc\""},
        {"\"\"", "\"\""},
        {"\"say \"\"hi\"\"\"", "\"say \"hi\"\""},
        {"\"it's\"", "\"it's\""},
        {"\"abc", "#230"},
        {"\"a\"+\"b\"", "\"ab\""},
        {"\"abc\"<<1", "\"bc\""},
        {"\"abc\">>1", "\"ab\""},
        {"\"abc\"<<9", "\"\""},
        {"\"abc\">>9", "\"\""},
        {"\"abc\"<<-1", "#215"},
        {"\"abc\"<<\"x\"", "#232"},
        {"\"a\"+1", "#236"},
        {"1+\"a\"", "#236"},
        {"\"a\"*1", "#236"},
        {"\"a\"*\"b\"", "#231"},
        {"\"a\"-\"b\"", "#231"},
        {"\"a\"=\"b\"", "#231"},
        {"\"a\"=1", "#236"},
        {"\"a\"<\"b\"", "1"},
        {"\"ab\"<\"abc\"", "1"},
        {"\"a\"<>\"A\"", "1"},
        {"\"\xE9\">\"z\"", "1"},
        {"\"a\"==\"a\"", "1"},
        {"\"a\":1", "1"},
        {"A=1 ' sets A\nA", "1"},
        {"1 ' an \" unclosed quote", "1"},
        {"1+'x", "#211"},
        {"' all comment", "#211"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, SyntaxErrors)
{
    const LanguageRow rows[] = {
        {"", "#207"},
        {"   ", "#207"},
        {"1+", "#207"},
        {"1 2", "#213"},
        {"(1", "#212"},
        {"1)", "#212"},
        {"((1)", "#212"},
        {"(1))", "#212"},
        {"()", "#211"},
        {"1,2", "#209"},
        {"(1,2)", "#213"},
        {"F(1)", "#223"},
        {"IF(1,2", "#212"},
        {"IF(1,2,3", "#212"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, NamesAndAssignment)
{
    const LanguageRow rows[] = {
        {"ABCDEFGHIJKLMNOPQRSTU=1:ABCDEFGHIJKLMNOPQRSTU", "1"},
        {"ABCDEFGHIJKLMNOPQRSTUV=1", "#222"},
        {"A_1=2:A_1", "2"},
        {"_X=3:_X", "3"},
        {"a=5\nA", "5"},
        {"Ab=1", "#213"},
        {"IF=3:IF", "3"},
        {"IF (1,2,3)", "2"},
        {"A+1", "1"},
        {"A+1\nA=\"x\"", "\"x\""},
        {"A=1\nA=\"x\"", "#232"},
        {"A=1\nA=\"x\"\nA", "1"},
        {"A=\"x\"\nA=1", "#232"},
        {"B=\"x\":A=1:A=B", "#232"},
        {"1=2", "#221"},
        {"A=B=1", "#221"},
        {"A=(B=1)", "1"},
        {"(A)=1", "1"},
        {"A=\"s\":B=A:B", "\"s\""},
        {"A=\"s\":A=A:A", "\"s\""},
        {"A=\"abc\":(A<<0)+(A=\"xyz\")", "\"abcxyz\""},
        {"A=\"x\"\nRESET(A)\nA", "\"\""},
        {"A=\"x\"\nRESET(A)\nA+\"y\"", "\"y\""},
        {"A=\"x\"\nRESET(A)\nA=1", "#232"},
        {"A=1\nINIT(A)\nA=\"x\"", "\"x\""},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, ControlForms)
{
    const LanguageRow rows[] = {
        {"IF(1,2,3)", "2"},
        {"IF(0,2,3)", "3"},
        {"IF(0,1/0,2)", "2"},
        {"IF(1,2,1/0)", "2"},
        {"IF(1,\"a\",2)", "\"a\""},
        {"IF(1,A,2)=5\nA", "5"},
        {"IF(\"x\",1,2)", "#233"},
        {"IF(1,2)", "#217"},
        {"IF(1,2,3,4)", "#217"},
        {"WHILE(0,A=1)", "0"},
        {"WHILE(0,A=1)\nA", "0"},
        {"WHILE(1)", "#217"},
        {"WHILE(\"x\",1)", "#232"},
        {"WHILE(A<3,A=A+1,B=B+2)\nB", "6"},
        {"A=0:WHILE(A<3,A=A+1,1/0)", "#219"},
        {"FOR(A=1,A<4,B=B+A,A=A+1)", "0"},
        {"FOR(A=1,A<4,B=B+A,A=A+1)\nB", "6"},
        {"FOR(A=1,A<4,B=B+A,A=A+1)\nA", "4"},
        {"FOR(A=1,A<4)", "#217"},
        {"INIT(A,B)", "2"},
        {"RESET(A)", "1"},
        {"INIT(1)", "#233"},
        {"INIT(\"a\")", "#233"},
        {"RESET(IF(1,2,3))", "#233"},
        {"SECURITY(0)", "500"},
        {"SECURITY(10)\nSECURITY(0)", "10"},
        {"SECURITY(-1)", "#215"},
        {"SECURITY(\"x\")", "#233"},
    };
    CheckRows(rows);
}

// The limit counts turns whatever the test says on the last one: with 500,
// 499 turns finish and the 500th stops the loop.
TEST_F(MacroTest, LoopLimit)
{
    const LanguageRow rows[] = {
        {"A=0:WHILE(A<499,A=A+1)\nA", "499"},
        {"A=0:WHILE(A<500,A=A+1)", "#224"},
        {"A=0:WHILE(A<500,A=A+1)\nA", "500"},
        {"FOR(I=0,I<499,I=I+1)", "0"},
        {"FOR(I=0,I<500,I=I+1)", "#224"},
        {"SECURITY(3)\nA=0:WHILE(A<5,A=A+1)\nA", "3"},
        {"SECURITY(1000)\nA=0:WHILE(A<999,A=A+1)\nA", "999"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, ExecAndReadDef)
{
    const LanguageRow rows[] = {
        {"EXEC(\"1+2\")", "3"},
        {"EXEC(\"a=5\")\nA", "5"},
        {"C=\"B=2\":EXEC(C)\nB", "2"},
        {"A=\"x\":EXEC(\"A\")", "\"x\""},
        {"EXEC(\"\"\"s\"\"\")", "\"s\""},
        {"EXEC(\"\")", "#215"},
        {"EXEC(\"1/0\")", "#219"},
        {"EXEC(1)", "#233"},
        {"EXEC(\"DEF F(X)=X\")", "#213"},
        {"DEF F(X)=X+1\nREADDEF(\"F\")", "\"F(X)=X+1\""},
        {"READDEF(\"G\")", "\"\""},
        {"READDEF(1)", "#233"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, UserFunctions)
{
    const LanguageRow rows[] = {
        {"DEF F(X)=X+1", "\"F\""},
        {"DEF F(X)=X+1\nF(2)", "3"},
        {"DEF ADD(X,Y)=X+Y\nADD(2,3)*2", "10"},
        {"DEF F(X)=X\nF(\"s\")", "\"s\""},
        {"DEF INC(X)=X=X+1\nA=1:INC(A):A", "2"},
        {"DEF INC(X)=X=X+1\nINC(1)", "#221"},
        {"DEF F(X)=T=X*2:T+1\nF(5)", "11"},
        {"DEF F(X)=T=X*2:T+1\nF(5):T", "10"},
        {"DEF SUM(N)=S=0:FOR(I=1,I<=N,S=S+I,I=I+1):S\nSUM(10)", "55"},
        {"DEF F(X)=X\nDEF G(X)=F(X)*2\nG(4)", "8"},
        {"DEF F(X)=X\nDEF F(X,Y)=X*Y\nF(2,3)", "6"},
        {"DEF F(X)=X\nDEF F(X)=X+\nF(1)", "1"},
        {"DEF F(X)=X ' comment\nF(7)", "7"},
        {"DEF ABCDEFGHIJKLM(X)=X\nABCDEFGHIJKLM(4)", "4"},
        {"DEF F(A,B,C,D,E,G,H,I,J,K,L,M,N,O,P)=P\nF(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15)", "15"},
        {"DEF F(X)=X\nF(1,2)", "#217"},
        {"DEF F(X)=X\nF()", "#211"},
        {"DEF F(X)=X/0\nF(1)", "#219"},
    };
    CheckRows(rows);
}

TEST_F(MacroTest, DefinitionErrors)
{
    const LanguageRow rows[] = {
        {"DEF 1(X)=X", "#209"},
        {"DEF F(X=1", "#209"},
        {"DEF F(X)X", "#209"},
        {"DEF F(A,B,C,D,E,G,H,I,J,K,L,M,N,O,P,Q)=1", "#217"},
        {"DEF IF(X)=X", "#225"},
        {"DEF EXEC (X)=X", "#225"},
        {"DEF ABCDEFGHIJKLMN(X)=X", "#226"},
        {"DEF F(1)=1", "#227"},
        {"DEF F()=1", "#227"},
        {"DEF F(_X)=1", "#227"},
        {"DEF F(X,X)=X", "#237"},
        {"DEF F", "#238"},
        {"DEF F(X)=X+", "#207"},
        {"DEF F(X)=F(X)", "#223"},
        {"DEF F(X)=X\nDEF F(X,X)=1\nF(3)", "3"},
    };
    CheckRows(rows);
}
