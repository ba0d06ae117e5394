# The help file beside the program, of the topics in docs/help. Run as a script (with -P) it writes the file.
if(CMAKE_SCRIPT_MODE_FILE)
    file(GLOB TOPICS ${TOPIC_FOLDER}/*.txt)
    list(SORT TOPICS)
    file(WRITE ${HELP_FILE}.new "help 1\n")
    foreach(TOPIC ${TOPICS})
        file(READ ${TOPIC} TEXT)
        file(APPEND ${HELP_FILE}.new "\n${TEXT}")
    endforeach()
    file(APPEND ${HELP_FILE}.new "\n= end\n")
    file(RENAME ${HELP_FILE}.new ${HELP_FILE})
    return()
endif()

set(HELP_FILE ${CMAKE_BINARY_DIR}/Norvaset.hlp)
set(TOPIC_FOLDER ${CMAKE_SOURCE_DIR}/docs/help)
file(GLOB TOPICS CONFIGURE_DEPENDS ${TOPIC_FOLDER}/*.txt)
add_custom_command(OUTPUT ${HELP_FILE}
    COMMAND ${CMAKE_COMMAND} -DTOPIC_FOLDER=${TOPIC_FOLDER} -DHELP_FILE=${HELP_FILE} -P ${CMAKE_CURRENT_LIST_FILE}
    DEPENDS ${TOPICS} ${CMAKE_CURRENT_LIST_FILE}
    COMMENT "Making the help file" VERBATIM)
add_custom_target(help_file ALL DEPENDS ${HELP_FILE})

# The book for who has none yet, beside the program, too.
set(WELCOME_BOOK ${CMAKE_SOURCE_DIR}/packaging/sample/Welcome.txt)
configure_file(${WELCOME_BOOK} ${CMAKE_BINARY_DIR}/Welcome.txt COPYONLY)
