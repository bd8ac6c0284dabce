find_program(CLANG_FORMAT_EXECUTABLE clang-format)
if(CLANG_FORMAT_EXECUTABLE)
    file(GLOB_RECURSE VANTLE_FORMAT_SOURCES CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/src/*.h
        ${PROJECT_SOURCE_DIR}/tests/*.cpp ${PROJECT_SOURCE_DIR}/tests/*.h
        ${PROJECT_SOURCE_DIR}/bench/*.cpp ${PROJECT_SOURCE_DIR}/bench/*.h
        ${PROJECT_SOURCE_DIR}/tools/*.cpp ${PROJECT_SOURCE_DIR}/tools/*.h)
    add_custom_target(format
        COMMAND ${CLANG_FORMAT_EXECUTABLE} -i ${VANTLE_FORMAT_SOURCES}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        COMMENT "Formatting the sources with clang-format")
    add_custom_target(format-check
        COMMAND ${CLANG_FORMAT_EXECUTABLE} --dry-run --Werror ${VANTLE_FORMAT_SOURCES}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        COMMENT "Checking the sources' formatting")
endif()
