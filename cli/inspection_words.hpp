// What the numbers of an inspection mean to a person.
#ifndef VARNEL_CLI_INSPECTION_WORDS_HPP
#define VARNEL_CLI_INSPECTION_WORDS_HPP

#include <Varnel/documents/inspect.h>

#include <string>
#include <string_view>

namespace varnel::cli {

/** "date of birth" and so on. */
std::string_view field_label(int field);

/** "passport (TD3)" and so on. */
std::string layout_label(int layout);

/**
 * What is wrong with a field, or worth knowing of it, to be read after its name: "is missing"; of the given
 * names "are missing".
 */
std::string finding_words(const varnel_finding &finding);

/** A finding or notice as a sentence about its field or line. */
std::string finding_sentence(const varnel_finding &finding);

/** Why a character was changed. */
std::string_view change_words(int reason);

/** The verdict with what it is about: "Valid passport (TD3)". */
std::string verdict_sentence(const varnel_inspection &inspection);

/** Why a text was refused, for its reader to act on. */
std::string refusal_words(const varnel_inspection &inspection);

} // namespace varnel::cli

#endif
