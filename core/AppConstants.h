// Program-wide names and texts shared by the window, the command-line tool and the files.
#ifndef LUMIVAR_CORE_APPCONSTANTS_H
#define LUMIVAR_CORE_APPCONSTANTS_H

constexpr const char* APP_NAME = "Lumivar";
constexpr const char* USER_DESIGNS_FILE_EXT = ".vtd";
// Shown wherever a value has no meaning.
constexpr const char* UNDEFINED_TERM = "N/A";
constexpr const char* LED_NAME_SEP = " ; ";
constexpr const char* BLUE_PEAK_CURVE_NAME = "Blue peak removed";
constexpr const char* DEFAULT_MAIN_NAME = "Main";
constexpr const char* DEFAULT_MATCHING_NAME = "Matching";
constexpr const char* R_VALUES_USER_COLORS_NAME = "R_values";
constexpr const char* Q_VALUES_USER_COLORS_NAME = "Q_values";
// Override file of the pure-colour LED peak table in the program folder, put into "%s.txt";
// the program writes its table in use to "%s_current.txt".
constexpr const char* COLOR_REFEF_FILENAME = "LumivarColorLEDdef";
constexpr const char* CES_COLORS_FILENAME = "CES_colors";
constexpr const char* COLOR_CHECKER_COLORS_FILENAME = "ColorChecker_colors";
constexpr const char* CES_DATA_FILENAME = "CES_data.xls";
constexpr const char* CRI_CQS_UPVP_FILENAME = "CRI_CQS_u'v'.xls";
constexpr const char* HORSESHOE_FILE_NAME = "CIE_horseshoe.xls";
constexpr const char* GAMUT_FILE_NAME = "gamut_points.xls";
constexpr const char* OUTPUT_ORDER_FILE_NAME = "outputOrder.txt";
constexpr const char* EML_TITLE = "Well Building Equivalent Melanopic Lux 2018 v1";
constexpr const char* SSI_TITLE = "Academy Spectral Similarity Index 2019 (SSI)";
// Name of the photometry text file in the per-user folder.
constexpr const char* PHOTOMETRY_FILE_NAME = "photometry.txt";
// The program version, written "7.77" and as "%s v%d.%02d" in the window title.
constexpr int VERSION_MAJOR = 7;
constexpr int VERSION_MINOR = 77;

#endif  // LUMIVAR_CORE_APPCONSTANTS_H
