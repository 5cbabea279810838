#include "pages/report_page.hpp"

#include "pages/page_parts.hpp"
#include "tables/unusable_input.hpp"

namespace {

// The page's own scripts, in the order of the build.
std::string own_script() {
    std::string script;
    for (const embedded_part& part : embedded_parts()) {
        if (part.name.ends_with(".js")) {
            script.append(part.begin, part.end);
        }
        if (part.name == "main.js") {
            return script;
        }
    }
    return script;
}

std::string without(std::string text, const std::string& unwanted, const std::string& instead) {
    for (std::size_t at = 0; (at = text.find(unwanted, at)) != std::string::npos; at += instead.size()) {
        text.replace(at, unwanted.size(), instead);
    }
    return text;
}

// Each with its licence before it; nothing in either may end the comment or the element.
std::string library_scripts() {
    std::string scripts;
    for (const std::string name : {"cytoscape.min", "dagre.min", "cytoscape-dagre"}) {
        const auto licence = page_part(name + ".LICENSE");
        const auto script = page_part(name + ".js");
        if (!licence || !script) {
            throw unusable_input(
                "this program was built without the scripts that draw in the report: "
                "run tools/setup, which fetches them, and build it again");
        }
        scripts += "<script>\n/*\n" + without(std::string(*licence), "*/", "* /") + "*/\n" +
                   without(std::string(*script), "</script", "<\\/script") + "</script>\n";
    }
    return scripts;
}

}  // namespace

std::string report_page(const results::answer& answer, const report_extras& extras) {
    const std::string_view frame = page_part("page.html").value();
    std::string page;
    for (std::size_t at = 0; at < frame.size();) {
        const std::size_t open = frame.find("{{", at);
        page += frame.substr(at, open - at);
        if (open == std::string_view::npos) {
            break;
        }
        const std::size_t close = frame.find("}}", open);
        const std::string_view place = frame.substr(open + 2, close - open - 2);
        page += place == "style"    ? std::string(page_part("page.css").value())
                : place == "data"   ? report_data(answer, extras)
                : place == "script" ? own_script()
                                    : library_scripts();
        at = close + 2;
    }
    return page;
}
