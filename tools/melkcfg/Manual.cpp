// man(7) takes a backslash, and a point or an apostrophe at the start of a line, for itself; "-" is written "\-" so
// that options can be copied out of the page.
#include "Manual.h"

#include "UsageErrors.h"

#include <algorithm>

namespace {

std::string RoffText(const std::string& text)
{
    std::string escaped;
    for (const char character : text)
    {
        const bool isStart = escaped.empty() || escaped.back() == '\n';
        if (isStart && (character == '.' || character == '\''))
            escaped += "\\&";
        if (character == '-' || character == '\\')
            escaped += '\\';
        escaped += character == '\\' ? 'e' : character;
    }
    return escaped;
}

bool IsPositional(const CLI::Option* option) { return option->get_positional(); }
bool IsShownOption(const CLI::Option* option) { return !option->get_positional() && !option->get_group().empty(); }

// "--level LEVEL", with the type in italics.
std::string NameOf(const CLI::Option& option)
{
    if (option.get_positional())
        return "\\fI" + RoffText(option.get_name(true)) + "\\fR";
    std::string name = "\\fB" + RoffText(option.get_name(false, true)) + "\\fR";
    if (option.get_items_expected_max() > 0)
        name += " \\fI" + RoffText(option.get_type_name()) + "\\fR";
    return name;
}

std::string Paragraph(const CLI::Option& option)
{
    std::string text = option.get_description();
    if (!option.get_default_str().empty())
        text += " (" + option.get_default_str() + " unless given)";
    return ".TP\n" + NameOf(option) + "\n" + RoffText(text) + "\n";
}

std::string Synopsis(const CLI::App& command)
{
    std::string synopsis = ".SS \"" + RoffText(command.get_name());
    const auto isAny = command.get_options(IsShownOption);
    if (isAny.size() > 1) // more than --help
        synopsis += " [OPTION...]";
    for (const CLI::Option* argument : command.get_options(IsPositional))
    {
        const std::string name =
            RoffText(argument->get_name(true)) + (argument->get_items_expected_max() > 1 ? "..." : "");
        synopsis += argument->get_required() ? " " + name : " [" + name + "]";
    }
    return synopsis + "\"\n";
}

std::string Section(const CLI::App& application, const CLI::App& command)
{
    std::string section = Synopsis(command) + RoffText(command.get_description()) + ".\n";
    for (const CLI::Option* argument : command.get_options(IsPositional))
        section += Paragraph(*argument);
    for (const CLI::Option* option : command.get_options(IsShownOption))
        if (option != command.get_help_ptr())
            section += Paragraph(*option);
    if (const std::string footer = command.get_footer(); footer != application.get_footer() && !footer.empty())
        section += ".PP\n.nf\n" + RoffText(footer) + "\n.fi\n";
    return section;
}

constexpr const char* environment = R"(.SH ENVIRONMENT
.TP
.B MELK_CFG_PATH
The configuration directory, where \fB\-\-config\fR does not name it.
.TP
.B MELK_TEST_PATH
The path of the test mode, where \fB\-\-test\-path\fR does not name it.
.TP
.B MELK_MSG_CATALOG
A file of lines KEY = "text" with other texts for messages.
.TP
.B NO_COLOR
When it is set, findings are not coloured.
.SH FILES
.TP
.I $XDG_STATE_HOME/melkcfg/history
The lines of \fBmelkcfg shell\fR (below ~/.local/state where XDG_STATE_HOME is not set).
)";

} // namespace

std::string ManualOf(const CLI::App& application)
{
    std::string page = std::string(".TH MELKCFG 1 \"\" \"melkcfg ") + MELKCFG_VERSION +
                       "\" \"User Commands\"\n.SH NAME\nmelkcfg \\- asks vehicle\\-architecture configurations\n"
                       ".SH SYNOPSIS\n.B melkcfg\n[\\fIOPTION\\fR...] \\fICOMMAND\\fR [\\fIARGUMENT\\fR...]\n"
                       ".SH DESCRIPTION\n" +
                       RoffText(application.get_description()) +
                       "\nA configuration is named as \\fBmelkcfg list\\fR does, or by its file.\n"
                       "Numbers take a unit where they have a dimension: hPointTravel=133mm, backAngle=25deg.\n"
                       ".SH OPTIONS\n";
    for (const CLI::Option* option : application.get_options(IsShownOption))
        page += Paragraph(*option);
    page += ".SH COMMANDS\n";
    for (const CLI::App* command : CommandsOf(application))
        page += Section(application, *command);
    const std::string footer = application.get_footer();
    const std::size_t statuses = footer.find('\n');
    page += ".SH \"EXIT STATUS\"\n.nf\n" + RoffText(footer.substr(statuses + 1)) + "\n.fi\n";
    return page + environment;
}
