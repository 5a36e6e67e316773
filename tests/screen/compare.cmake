# Runs scripts over the stores and through the windows; what they print and answer must be the same, and every script must pass.
#   cmake -DSTORES=zbc -DSCREEN=zeltobench-screen-script -DFOLDER=... -P compare.cmake
file(GLOB_RECURSE scripts ${FOLDER}/*.zbs)
list(LENGTH scripts count)
if(count EQUAL 0)
  message(FATAL_ERROR "no scripts in ${FOLDER}")
endif()

# Work folders have a name of their own in each run.
function(run_scripts prefix)
  execute_process(COMMAND ${ARGN} ${scripts} OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE result)
  string(REGEX REPLACE "zbc-[A-Za-z0-9]+" "WORK" out "${out}")
  string(REGEX REPLACE "zbc-[A-Za-z0-9]+" "WORK" err "${err}")
  set(${prefix}_text "answer: ${result}\n${out}${err}" PARENT_SCOPE)
  set(${prefix}_result "${result}" PARENT_SCOPE)
endfunction()

run_scripts(stores ${STORES} script)
run_scripts(screen ${SCREEN})
if(NOT stores_text STREQUAL screen_text)
  message(FATAL_ERROR "The windows differ from the stores.\n--- stores\n${stores_text}\n--- windows\n${screen_text}")
endif()
if(NOT screen_result EQUAL 0)
  message(FATAL_ERROR "${screen_text}")
endif()
message("${count} scripts ran alike")
