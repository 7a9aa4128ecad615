#pragma once

namespace ui::id {

// The fixed number of every control, by form, so that tests, tools and screen readers find them
// (GetDlgItem). A control array takes consecutive numbers from its first. Numbers are never reused.

// Form1: where
inline constexpr int kDrive1 = 1001;
inline constexpr int kDir1 = 1002;
inline constexpr int kFile1 = 1003;
inline constexpr int kFile2 = 1004;
inline constexpr int kTyp = 1005;  // Typ(0) ... Typ(2): 1005 to 1007

// Form1: how
inline constexpr int kIntT = 1010;
inline constexpr int kIntS = 1011;
inline constexpr int kLabel2 = 1012;
inline constexpr int kLoopC = 1013;
inline constexpr int kShowFN = 1014;
inline constexpr int kCheck1 = 1015;
inline constexpr int kMusik = 1016;
inline constexpr int kMUTE = 1017;
inline constexpr int kScreen2 = 1018;
inline constexpr int kFrame1 = 1019;
inline constexpr int kOption1 = 1020;  // Option1(0) ... Option1(3): 1020 to 1023

// Form1: go
inline constexpr int kRun = 1030;
inline constexpr int kStart = 1031;
inline constexpr int kCTRL = 1032;
inline constexpr int kSAVE = 1033;
inline constexpr int kHelp = 1034;
inline constexpr int kEOT = 1035;
inline constexpr int kENDE = 1036;

// Form1: show surfaces, captions and decoration
inline constexpr int kLabel1 = 1040;
inline constexpr int kUT = 1041;
inline constexpr int kText1 = 1042;
inline constexpr int kPic1 = 1043;
inline constexpr int kPic2 = 1044;
inline constexpr int kPic3 = 1045;
inline constexpr int kLine1 = 1046;
inline constexpr int kLine2 = 1047;

// Form2: the thumbnails are boxes of one class and share one number.
inline constexpr int kThumbnail = 1100;
inline constexpr int kOverviewPic2 = 1101;
inline constexpr int kOverviewPic3 = 1102;
inline constexpr int kList1 = 1103;
inline constexpr int kList1Caption = 1104;
inline constexpr int kOK = 1105;
inline constexpr int kCAN = 1106;
inline constexpr int kTon = 1107;
inline constexpr int kProgress = 1108;
inline constexpr int kCommand = 1110;  // Command(0) ... Command(5): 1110 to 1115
inline constexpr int kNotice = 1117;
inline constexpr int kGrid = 1116;  // what the thumbnails lie in

// Form3
inline constexpr int kEntryLabel1 = 1200;  // Label1 ... Label4: 1200 to 1203
inline constexpr int kCombo1 = 1210;
inline constexpr int kCombo2 = 1211;
inline constexpr int kCombo3 = 1212;
inline constexpr int kUTT = 1213;
inline constexpr int kEntryCheck1 = 1214;
inline constexpr int kIm1 = 1215;
inline constexpr int kIm2 = 1216;
inline constexpr int kEntryOK = 1217;
inline constexpr int kEntryCANCEL = 1218;

// the input box
inline constexpr int kInputPrompt = 1300;
inline constexpr int kInputText = 1301;
inline constexpr int kInputOK = 1302;
inline constexpr int kInputCANCEL = 1303;

}  // namespace ui::id
