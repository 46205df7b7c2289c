#include "xmltarget.h"

namespace orlo::fuzz {

judgedNode judgedForm(const xmlNode& node)
{
    judgedNode form{node.name, node.text, {}, {}};
    for (const auto& [name, value] : node.attributes) form.attributes.emplace_back(name, value);
    for (const auto& child : node.children) {
        expect(child->parent == &node, "a child knows its parent");
        form.children.push_back(judgedForm(*child));
    }
    return form;
}

} // namespace orlo::fuzz
