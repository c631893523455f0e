// How arguments reach a member's parameters: positional and named ones, a put's value, named
// arguments that are wrong (unknown, repeated, more than given), optional parameters left out or
// passed as missing, by-reference arguments, and which argument puArgErr names when one is wrong.
#include "dispatch_calls.h"

using namespace dispatch_probe;

namespace {

using Named = std::vector<std::pair<DISPID, _variant_t>>;

// A toolbar's Float(top, left, rows), three longs, which Top, Left and FloatingRows read back.
Invocation floated(std::vector<_variant_t> positional, Named named = {})
{
    return {L"Float", DISPATCH_METHOD, std::move(positional), std::move(named)};
}
const std::vector<const wchar_t*> kPlacement = {L"Top", L"Left", L"FloatingRows"};

// The preferences' SupportPath, a text property.
Invocation supportPath(WORD flags, std::vector<_variant_t> positional, Named named = {})
{
    return {L"SupportPath", flags, std::move(positional), std::move(named)};
}
const std::vector<const wchar_t*> kPath = {L"SupportPath"};

// The menu groups' LoadMenuFile(menuFile, [baseMenu]); Count says whether a group was loaded.
Invocation loaded(std::vector<_variant_t> positional, Named named = {})
{
    return {L"LoadMenuFile", DISPATCH_METHOD, std::move(positional), std::move(named)};
}
const wchar_t* const kMxMenu = L"C:\\Program Files\\MX\\Support\\MX";

Invocation besides(_variant_t positional, Invocation call)
{
    call.positional.push_back(std::move(positional));
    return call;
}

// What by-reference arguments point at; they live as long as the probe.
LONG referencedTop = 77;
SHORT referencedLeft = 12;
_variant_t referencedRows(3L);
_bstr_t referencedPathText(L"E:\\ByReference");
BSTR referencedPath = referencedPathText;
_variant_t referencedIndex(0L);
_bstr_t referencedNameText(L"ZORB");
BSTR referencedName = referencedNameText;
VARIANT_BOOL referencedHidden = VARIANT_FALSE;

[[maybe_unused]] const bool kArguments = addCases(
    "arguments",
    {
        {"positional_in_order", Subject::toolbar, floated({120L, 40L, 2L}), kPlacement},
        {"too_few_positional", Subject::toolbar, floated({120L}), kPlacement},
        {"none_where_three_are_needed", Subject::toolbar, floated({}), kPlacement},
        {"one_too_many_positional", Subject::toolbar, floated({120L, 40L, 2L, 7L}), kPlacement},
        {"all_named_out_of_order", Subject::toolbar, floated({}, {{2, 3L}, {0, 10L}, {1, 20L}}), kPlacement},
        {"positional_then_named", Subject::toolbar, floated({11L}, {{2, 4L}, {1, 22L}}), kPlacement},
        {"named_for_a_positional_one_too", Subject::toolbar, floated({11L, 22L}, {{0, 5L}}), kPlacement},
        {"named_with_an_unknown_id", Subject::toolbar, floated({11L, 22L}, {{7, 5L}}), kPlacement},
        {"named_with_a_negative_id", Subject::toolbar, floated({11L, 22L}, {{-5, 5L}}), kPlacement},
        {"named_with_a_repeated_id", Subject::toolbar, floated({11L}, {{1, 22L}, {1, 33L}}), kPlacement},
        {"named_put_id_on_a_method", Subject::toolbar, floated({11L, 22L}, {{DISPID_PROPERTYPUT, 6L}}),
         kPlacement},
        {"more_named_than_given", Subject::toolbar,
         tampered([](DISPPARAMS& parameters) { parameters.cArgs = 2; },
                  floated({}, {{0, 10L}, {1, 20L}, {2, 3L}})),
         kPlacement},
        {"put_named_as_clients_do", Subject::files, put(L"SupportPath", L"D:\\Support"), kPath},
        {"put_without_the_named_value", Subject::files, supportPath(DISPATCH_PROPERTYPUT, {L"D:\\Support"}),
         kPath},
        {"put_with_the_value_named_by_its_position", Subject::files,
         supportPath(DISPATCH_PROPERTYPUT, {}, {{0, L"D:\\Support"}}), kPath},
        {"put_with_another_name_first", Subject::files,
         supportPath(DISPATCH_PROPERTYPUT, {}, {{0, L"D:\\Other"}, {DISPID_PROPERTYPUT, L"D:\\Support"}}),
         kPath},
        {"put_with_the_value_named_twice", Subject::files,
         supportPath(DISPATCH_PROPERTYPUT, {},
                     {{DISPID_PROPERTYPUT, L"D:\\First"}, {DISPID_PROPERTYPUT, L"D:\\Second"}}),
         kPath},
        {"put_with_a_positional_one_besides", Subject::files,
         besides(L"D:\\Extra", put(L"SupportPath", L"D:\\Support")), kPath},
        {"put_of_no_value", Subject::files,
         tampered([](DISPPARAMS& parameters) { parameters.cArgs = parameters.cNamedArgs = 0; },
                  put(L"SupportPath", L"D:\\Support")),
         kPath},
        {"get_with_a_named_argument", Subject::files,
         supportPath(DISPATCH_PROPERTYGET, {}, {{0, L"D:\\Support"}}), kPath},
    });

[[maybe_unused]] const bool kOptional = addCases(
    "optional",
    {
        {"left_out", Subject::groups, loaded({kMxMenu}), {L"Count"}},
        {"passed_as_missing", Subject::groups, loaded({kMxMenu, missing()}), {L"Count"}},
        {"passed_empty", Subject::groups, loaded({kMxMenu, _variant_t()}), {L"Count"}},
        {"passed_by_name", Subject::groups, loaded({kMxMenu}, {{1, missing()}}), {L"Count"}},
        {"required_one_passed_by_name_alone", Subject::groups, loaded({}, {{0, kMxMenu}}), {L"Count"}},
        {"required_one_left_out", Subject::groups, loaded({}, {{1, missing()}}), {L"Count"}},
        {"required_one_passed_as_missing", Subject::groups, loaded({missing()}), {L"Count"}},
        {"both_of_two_left_out", Subject::document, {L"Close", DISPATCH_METHOD}},
        {"first_of_two_left_out_by_name",
         Subject::document,
         {L"Close", DISPATCH_METHOD, {}, {{1, L"C:\\Copy.dwg"}}}},
        {"missing_where_a_long_is_required", Subject::toolbar, floated({11L, missing(), 2L}), kPlacement},
    });

[[maybe_unused]] const bool kByReference = addCases(
    "by_reference",
    {
        {"long_to_a_long", Subject::toolbar, floated({reference(VT_I4, &referencedTop), 40L, 2L}),
         kPlacement},
        {"short_to_a_long", Subject::toolbar, floated({1L, reference(VT_I2, &referencedLeft), 2L}),
         kPlacement},
        {"variant_to_a_long", Subject::toolbar, floated({1L, 2L, reference(VT_VARIANT, &referencedRows)}),
         kPlacement},
        {"text_to_a_text", Subject::files, put(L"SupportPath", reference(VT_BSTR, &referencedPath)), kPath},
        {"variant_to_a_variant",
         Subject::groups,
         {L"Item", DISPATCH_METHOD, {reference(VT_VARIANT, &referencedIndex)}}},
        {"text_to_a_variant",
         Subject::groups,
         {L"Item", DISPATCH_METHOD, {reference(VT_BSTR, &referencedName)}}},
        {"boolean_to_a_boolean",
         Subject::toolbar,
         put(L"Visible", reference(VT_BOOL, &referencedHidden)),
         {L"Visible"}},
    });

[[maybe_unused]] const bool kArgumentError =
    addCases("argument_error",
             {
                 {"first_of_three_mismatched", Subject::toolbar, floated({L"top", 40L, 2L}), kPlacement},
                 {"middle_of_three_mismatched", Subject::toolbar, floated({1L, L"left", 2L}), kPlacement},
                 {"last_of_three_mismatched", Subject::toolbar, floated({1L, 40L, L"rows"}), kPlacement},
                 {"two_of_three_mismatched", Subject::toolbar, floated({1L, L"left", L"rows"}), kPlacement},
                 {"overflow", Subject::toolbar, floated({1L, 1e12, 2L}), kPlacement},
                 {"overflow_after_a_mismatch", Subject::toolbar, floated({L"top", 1e12, 2L}), kPlacement},
                 {"mismatch_in_a_named_argument", Subject::toolbar, floated({1L}, {{2, L"rows"}, {1, 2L}}),
                  kPlacement},
                 {"mismatch_without_a_place_to_say_it", Subject::toolbar,
                  withoutArgumentError(floated({1L, L"left", 2L})), kPlacement},
                 {"mismatch_in_a_put", Subject::files, put(L"SupportPath", variantArray({1L})), kPath},
                 {"missing_argument", Subject::toolbar, floated({1L, 2L}), kPlacement},
                 {"mismatch_with_too_few", Subject::toolbar, floated({L"top", 2L}), kPlacement},
             });

}  // namespace
