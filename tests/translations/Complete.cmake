# Fails when a catalogue lacks the translation of a source text: runs lupdate
# over the sources into a copy of each catalogue in WORK_DIR, where every text
# that is new or untranslated comes out "unfinished".
file(REMOVE_RECURSE ${WORK_DIR})
file(GLOB catalogues ${SOURCE_DIR}/resources/translations/*.ts)
if(NOT catalogues)
    message(FATAL_ERROR "no catalogues in ${SOURCE_DIR}/resources/translations")
endif()
set(failed FALSE)
foreach(catalogue IN LISTS catalogues)
    get_filename_component(name ${catalogue} NAME)
    file(COPY ${catalogue} DESTINATION ${WORK_DIR})
    execute_process(
        COMMAND ${LUPDATE} -silent -locations none -I ${SOURCE_DIR}/src ${SOURCE_DIR}/src/cli ${SOURCE_DIR}/src/gui
                ${SOURCE_DIR}/src/core ${SOURCE_DIR}/src/app/RunReport.cpp ${SOURCE_DIR}/src/settings/ProfilesManager.cpp
                -ts ${WORK_DIR}/${name}
        RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "lupdate failed on ${name}")
    endif()
    file(READ ${WORK_DIR}/${name} text)
    string(REGEX MATCHALL "<source>[^<]*</source>[ \n]*<translation type=\"unfinished\"" untranslated "${text}")
    list(LENGTH untranslated count)
    string(REGEX MATCHALL "<message>" messages "${text}")
    list(LENGTH messages total)
    if(count GREATER 0)
        set(failed TRUE)
        message("${name}: ${count} of ${total} source texts untranslated (cmake --build --preset default --target update_translations adds them):")
        foreach(entry IN LISTS untranslated)
            string(REGEX REPLACE "<source>([^<]*)</source>.*" "  \\1" entry "${entry}")
            message("${entry}")
        endforeach()
    else()
        message("${name}: all ${total} source texts translated")
    endif()
endforeach()
if(failed)
    message(FATAL_ERROR "untranslated texts")
endif()
