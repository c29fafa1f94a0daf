// Statements of every kind that the program issues, one of a pattern.
#pragma once

#include <string_view>

namespace tallmar::test {

inline constexpr std::string_view kStatements[] = {
    "SELECT CostCenters.* INTO DeletedCCs FROM CostCenters Where LineNum = 0;",
    "UPDATE A INNER JOIN A1 ON A.LineNum = A1.LineNum SET A.Col_1 = [A1].[Col_9] WHERE A.LineNum<29;",
    "UPDATE Cp3, B SET Col_2 = [Total] WHERE (((Cp3.LineNum)=16.2) AND ((B.LineNum)=13.2));",
    "UPDATE B1X SET ColCCNum = \"CC_\" & Val(Mid$([ColCCNum],4))-\"1\" WHERE Val(Mid$([ColCCNum],4))>501;",
    "CREATE UNIQUE INDEX ndxWorksheets ON Worksheets (Item) WITH DISALLOW NULL;",
    "SELECT Item From Worksheets Where (KillDate <= MakeDate Or KillDate Is Null) And Calc_Lvl < 999 ORDER BY Item;",
    "Update Worksheets Set Calc_Lvl=6 Where Item Like(\"O5*\");",
    "SELECT Count(*) as Cnt From CostCenters WHERE LineNum = 23.2;",
    "INSERT INTO DeletedCCs (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) VALUES "
    "(23.2,'S',23.20,2320,'A',9,'Other Nonreimbursable Tele-Medicine');",
    "SELECT CCName From CostCenters WHERE LineNum in (5, 5.01);",
    "INSERT INTO A SELECT LineNum, CCNum, CCGroup, CCName FROM CostCenters WHERE LineNum = 13.2;",
    "SELECT LineNum, CCGroup From CostCenters Where (((LineNum) >= 5 And (LineNum) < 6) And "
    "((InStr(UCase([StatLabel1]), \"ACCUM\")) > 0) And ((InStr(UCase([StatLabel2]), \"COST\")) > 0)) ORDER BY LineNum;",
    "UPDATE Master SET BuildDate = #10/1/2015 8:05:00 AM#, ProviderNumber = \"57-7001\", FYStart = #10/1/2015#;",
    "INSERT INTO Log (LogType, [DateTime], Severity, Module, [Procedure], Worksheet, Message) VALUES ('*', "
    "'10/1/2015', 'F.Y.I.', 'Build_Log', 'Build_Log', 'Log', 'Log table built/initialized.');",
    "DELETE * FROM Log WHERE LogType = 'C';",
    "UPDATE A SET Col_1=0, Col_2=0, Col_4=0 WHERE LineNum NOT In(1,2);",
    "UPDATE A1 SET Col_9 = IIF(IsNull(Col_1),0,Col_1)+IIF(IsNull(Col_2),0,Col_2) WHERE (LineNum > 2) AND (LineNum < "
    "29);",
    "SELECT Sum(Col_1) AS Tot_1, Sum(Col_2) AS Tot_2 FROM A1 WHERE (LineNum > 2) AND (LineNum < 29);",
    "UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET A.Col_7 = A.Col_7+IIF(IsNull([A4].[Col_4]),0,[A4].[Col_4]) "
    "WHERE A4.LineNum<30;",
    "UPDATE A4 SET Col_2 = Null, Col_3 = Null, Col_4 = Null WHERE Col_3=0 Or Col_3 Is Null And LineNum < 30;",
    "SELECT Distinct ColCCNum FROM B1X;",
    "Delete From B1X Where ColCCNum='CC_501';",
    "UPDATE A RIGHT JOIN B ON A.LineNum = B.LineNum SET B.NetExpenses = IIf(IsNull([A].[Col_10]),0,[A].[Col_10]) WHERE "
    "B.LineType<>\"T\";",
    "UPDATE B1X INNER JOIN B1 ON B1X.RowCCNum = B1.CCNum SET B1.Recon_501 = -[CC_501], CC_501=-1 WHERE "
    "(((B1X.ColCCNum)=\"CC_501\") AND ((B1X.Amount)=-1));",
    "SELECT TOP 1 LineNum, CC_501 From B Where LineNum BETWEEN 5.02 AND 28.99 ORDER BY CC_501 DESC;",
    "SELECT SUM(CC_501) as TotAmt FROM B1 WHERE (LineNum BETWEEN 5.02 AND 28.99) AND (CC_501> 0);",
    "INSERT INTO Cp3 (LineNum, Description, Col_1, Col_2) Select [LineNum]+3 As E1, \"Cost of \" & IIF([LineNum] = "
    "12,\"Medical \",\"\") & CCName As E2, CCNum, 0 From CostCenters Where Int(LineNum) = 12 Or Int(LineNum) = 13;",
    "UPDATE Cp1 INNER JOIN B ON Cp1.LineNum = B.LineNum-5 SET Cp1.Col_2 = IIf(IsNull(B.Total),0,B.Total) WHERE "
    "(B.LineNum >= 6 ) AND (B.LineNum <= 11 );",
    "UPDATE Cp1 SET Col_4 = IIF(Col_3>0,int(((Col_2/Col_3)*100)+.5)/100.0,0) WHERE (LineNum < 7);",
    "UPDATE Cp3 SET Col_4 = IIF(Col_3<>0, INT(((Col_2 / Col_3) * 1000000) +.5) / 1000000,NULL);",
    "UPDATE Cp5 SET Col_7 = INT(Col_6 * .9 + .5) WHERE LineNum < 28;",
    "SELECT Int([LineNum]) As LN, Sum(Col_9) AS Sum9 From Cp3 Where LineNum = 15 Or Int(LineNum) = 16 GROUP BY "
    "Int([LineNum]);",
    "UPDATE S2 SET LineNum=[LineNum]-21, LineLabel=\"HHA-based \" & [LineLabel] WHERE Int(LineNum) = 24;",
    "INSERT INTO S2 (LineNum, LineLabel) SELECT [LineNum] - IIF(int([LineNum])=24, 0, 1) As Expr, CCName FROM "
    "CostCenters WHERE Int(LineNum) IN (24, 26);",
    "UPDATE S3p1 SET Col_5 = IIF(IsNull(Col_1),0,Col_1) + IIF(IsNull(Col_3),0,Col_3) Where Col_5<>Null;",
    "SELECT Item, [ItemName] & \" (\" & [Item] & \")\" AS E1 From Worksheets WHERE Worksheets.Item Like (\"*h0\") "
    "Order "
    "By ItemName;",
    "UPDATE A SET CCNum = [CCNum]-10000.00, LineNum = [CCNum]-10000.00, CCGroup = CCGroup+1 WHERE (CCNum>10000);",
    "SELECT LineNum, Col_7 From S3p4 Where LineNum >= 30 And LineNum < 41 And Int([LineNum] / 2) * 2 = [LineNum] ORDER "
    "BY LineNum;",
    "SELECT B.Total, K5p1h0.SubTotal_6 From B, K5p1h0 WHERE B.LineNum=25 AND K5p1h0.LineNum=29;",
    "SELECT Item From Worksheets WHERE Item Like (\"K5p?h?\") And Item<\"K5p3\";",
    "SELECT Count(CCNum) AS Cnt From CostCenters WHERE Len(Trim([CCName]))=0 Or [CCName] Is Null;",
    "SELECT Distinct UCase([WorkSheet]) AS WS FROM ImportASCII;",
    "DELETE * From A4 WHERE Col_3=Null and Col_6=Null and LineNum<30;",
    "DROP TABLE tblTemp",
    "SELECT a FROM (x INNER JOIN y ON x.i = y.i) LEFT JOIN z AS zz ON y.k = zz.k WHERE NOT (a Like \"b*\" Or a Not In "
    "(1, 2.5)) And b Not Between -1 And 2^3 Mod 5\\2",
    "SELECT DISTINCT TOP 3 t.*, a AS [Two Words] FROM t ORDER BY a DESC, b",
    "INSERT INTO Error VALUES (\"S2\", \"N\", \"1000\", \"It's \"\"so\"\"\");",
    "CREATE TABLE t (a Boolean, b Byte, c Integer, d Long, e Currency, f Single, g Double, h Date, i Text(36), j Memo, "
    "k Char(2), l YesNo, m DateTime, n Text)",
    "CREATE INDEX i ON t (a, [b c])",
    "SELECT Col_1 AS Val, Sum(x) AS Sum, Answer, Description FROM Module WHERE Message = True Or [Order] = False",
};

}  // namespace tallmar::test
