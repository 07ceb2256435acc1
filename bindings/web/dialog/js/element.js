/** Makes an element: properties are set as such, children are texts or elements. */
export function element(tag, properties = {}, ...children) {
  const made = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (name.includes("-") || name === "role" || name === "for") {
      made.setAttribute(name, value);
    } else {
      made[name] = value;
    }
  }
  made.append(...children);
  return made;
}

export function byId(id) {
  return document.getElementById(id);
}
