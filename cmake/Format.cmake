add_custom_target(format
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/format
    COMMENT "Formatting the sources with clang-format")
add_custom_target(format-check
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/format --check
    COMMENT "Checking the sources' formatting")
