# cmake -P embed.cmake OUTPUT FILE...: a source file whose SchemaSteps() returns the texts of the files.
set(output ${CMAKE_ARGV3})

set(texts "")
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(index RANGE 4 ${last})
  file(READ "${CMAKE_ARGV${index}}" text)
  # A checkout with other line ends must not change what is run.
  string(REPLACE "\r\n" "\n" text "${text}")
  string(APPEND texts "    R\"sql(${text})sql\",\n")
endforeach()

file(WRITE "${output}" "#include \"database/schema_steps.h\"

namespace kiv::database {

std::span<const std::string_view> SchemaSteps() {
  static constexpr std::string_view kSteps[] = {
${texts}};
  return kSteps;
}

}  // namespace kiv::database
")
