# Runs help2man on PROGRAM (found on the search path, so that the page names it
# without the build folder) and writes PAGE. The help's "Subcommands:" and "Exit
# status:" headings, which help2man does not know, become sections of their own.
execute_process(
    COMMAND ${HELP2MAN} --no-info --section=1 --name=${SUMMARY} ${PROGRAM}
    OUTPUT_VARIABLE page
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "help2man ${PROGRAM} failed")
endif()
string(REPLACE ".SS \"Subcommands:\"\n" ".SH COMMANDS\n" page "${page}")
string(REPLACE ".SS \"Exit status:\"\n" ".SH \"EXIT STATUS\"\n" page "${page}")
# A file name with spaces is no option and its argument.
string(REPLACE "\\fI\\,~/Library/Logs/Vantle\\/\\fP X Log.txt" "~/Library/Logs/Vantle X Log.txt" page "${page}")
file(WRITE ${PAGE} "${page}")
