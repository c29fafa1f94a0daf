#include "report/open_report.h"

namespace tallmar {

Database db;
std::string CRFPath;
std::string CRFDir;
std::string CRFTitle;
std::string FormNum;
std::string ProviderNumber;
std::string ProviderName;
Date FYStart, FYEnd;
int AGOption = 0;
std::vector<std::string> gblMSACodes, gblCBSACodes;
std::string MsgLogPrefix;
std::string LogType;
std::string ProductTitle = "The Brennwick Systems, Inc.";
std::string HeaderLine1, HeaderLine2, HeaderLine3;

}  // namespace tallmar
