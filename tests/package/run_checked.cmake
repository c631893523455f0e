# run(COMMAND ...): runs a command, stops the script with its output when it fails, and leaves
# the output in `output` otherwise.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "failed (${status}): ${ARGV}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()
