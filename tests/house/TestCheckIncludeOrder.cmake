# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/CheckCase.cmake")

check_case("down, across one folder and to the toolkit" ""
    units/A.h "#include \"foundation/B.h\"\n#include \"units/C.h\"\n#include <QWidget>\n"
    units/A.cpp "#include \"units/A.h\"\n#include \"units/D_p.h\"\n"
    foundation/B.h "#include \"platform/E.h\"\n#include \"BVWidgetsExport.h\"\n")
check_case("up" "controls/A\\.cpp.*units stands above"
    controls/A.cpp "#include \"units/B.h\"\n")
check_case("up in angle brackets and with blanks" "style/A\\.h.*itemviews stands above"
    style/A.h "  #  include <itemviews/B.h>\n")
check_case("up without naming the folder" "foundation/A\\.cpp.*its folder is not named"
    foundation/A.cpp "#include \"B.h\"\n" units/B.h "\n")
check_case("between the two folders of the top floor" "layout/A\\.h.*navigation stands above"
    layout/A.h "#include \"navigation/B.h\"\n")
check_case("climbing" "platform/A\\.cpp.*climbs"
    platform/A.cpp "#include \"../platform/B.h\"\n")
check_case("private header in a public one" "units/A\\.h.*private header"
    units/A.h "#include \"units/B_p.h\"\n")
