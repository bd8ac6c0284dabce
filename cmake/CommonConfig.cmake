# Every target links vantle_common: the language level, the warnings and the Qt
# strictness switches live in one place.
add_library(vantle_common INTERFACE)
target_compile_features(vantle_common INTERFACE cxx_std_20)
target_compile_options(vantle_common INTERFACE -Wall -Wextra -Wpedantic $<$<BOOL:${VANTLE_WERROR}>:-Werror>)
target_compile_definitions(vantle_common INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_FOREACH)

set(CMAKE_AUTOMOC ON)
