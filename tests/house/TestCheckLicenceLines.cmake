# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/CheckCase.cmake")

# Joined here, so that this file itself has one such line.
string(CONCAT tag "SPDX-License" "-Identifier: MIT")
string(REPLACE MIT BSD other "${tag}")

check_case("each kind of file" ""
    src/A.h "// ${tag}\n" CMakeLists.txt "# ${tag}\n" run "#!/bin/bash\n# ${tag}\n"
    Style.css "/* ${tag} */\n" a.svg "<?xml version=\"1.0\"?>\n<!-- ${tag} -->\n"
    build/B.cpp "\n" data.xml "<a/>\n")
check_case("missing" "/src/A\\.cpp: 0" src/A.cpp "int a\n" src/B.cpp "// ${tag}\n")
check_case("twice" "/A\\.cmake: 2" A.cmake "# ${tag}\n\n# ${tag}\n")
check_case("not first" "/A\\.h: the licence line is not" A.h "#pragma once\n// ${tag}\n")
check_case("another licence" "/A\\.h: the licence line is not" A.h "// ${other}\n")
