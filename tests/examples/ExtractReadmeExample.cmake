# Writes the worked example of README.md (its first block of C++) and the output that it states (its
# first block of text) to files.
#
#   cmake -DREADME=... -DSOURCE=... -DOUTPUT=... -P ExtractReadmeExample.cmake

file(READ ${README} readme)

# take_block(LANGUAGE FILE): the first fenced block of the language, without its fences.
function(take_block language file)
    set(fence "\n```${language}\n")
    string(FIND "${readme}" "${fence}" begin)
    if(begin EQUAL -1)
        message(FATAL_ERROR "README.md has no block of ${language}")
    endif()
    string(LENGTH "${fence}" length)
    math(EXPR begin "${begin} + ${length}")
    string(SUBSTRING "${readme}" ${begin} -1 rest)
    string(FIND "${rest}" "\n```" end)
    if(end EQUAL -1)
        message(FATAL_ERROR "README.md does not end its block of ${language}")
    endif()
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${rest}" 0 ${end} block)
    file(WRITE ${file} "${block}")
endfunction()

take_block(cpp ${SOURCE})
take_block(text ${OUTPUT})
