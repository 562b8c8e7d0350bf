// Makes elements.

type Child = Node | string | null | false;
type Attributes = { [name: string]: string | number | boolean | ((event: never) => void) | undefined };

/** Attributes with functions are listeners; true and false set or leave out an attribute. */
export function element<Tag extends keyof HTMLElementTagNameMap>(
  tag: Tag,
  attributes: Attributes = {},
  ...children: Child[]
): HTMLElementTagNameMap[Tag] {
  const made = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (typeof value === "function") made.addEventListener(name, value as EventListener);
    else if (value === true) made.setAttribute(name, "");
    else if (value !== undefined && value !== false) made.setAttribute(name, String(value));
  }
  for (const child of children) if (child !== null && child !== false) made.append(child);
  return made;
}

const icons = {
  open: "M3 18V6h6l2 2h8v3M3 18l3-7h16l-3 7z",
  layers: "M12 3 2 8.5l10 5.5 10-5.5zM2 13l10 5.5L22 13M2 17l10 5.5L22 17",
  sheet: "M6 2h9l4 4v16H6zM15 2v4h4M9 11h7M9 15h7",
  contents: "M12 8v.01M12 11.5V17M12 2a10 10 0 1 0 .01 0z",
  find: "M10.5 3a7.5 7.5 0 1 0 .01 0zM16 16l6 6",
  measure: "M3 16 16 3l5 5L8 21zM7 12l2 2M10 9l3 3M13 6l2 2",
  compare: "M9 4a8 8 0 1 0 .01 0zM15 4a8 8 0 1 1-.01 0z",
  save: "M12 3v12M7 11l5 5 5-5M4 20h16",
  print: "M7 9V3h10v6M7 17H3V9h18v8h-4M7 14h10v7H7z",
  help: "M9 9a3 3 0 1 1 4.5 2.6c-1 .6-1.5 1.2-1.5 2.4M12 17.5v.01M12 2a10 10 0 1 0 .01 0z",
  plus: "M12 5v14M5 12h14",
  minus: "M5 12h14",
  fit: "M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5M9 12h6M12 9v6",
  full: "M6 3h12v18H6z",
  close: "M6 6l12 12M18 6 6 18",
  distance: "M4 20 20 4M4 14v6h6M14 4h6v6",
  angle: "M20 20H4L16 5M12 20a8 8 0 0 0-3-6.2",
  area: "M4 8l9-4 7 7-4 9H6z",
  part: "M4 8V4h4M12 4h2M18 4h2v4M20 12v2M20 18v2h-4M12 20h-2M6 20H4v-4M4 12v-2",
  up: "M6 15l6-6 6 6",
  down: "M6 9l6 6 6-6",
} as const;

export type IconName = keyof typeof icons;

export function icon(name: IconName): SVGSVGElement {
  const space = "http://www.w3.org/2000/svg";
  const svg = document.createElementNS(space, "svg"),
    path = document.createElementNS(space, "path");
  svg.setAttribute("viewBox", "0 0 24 24");
  svg.setAttribute("class", "icon");
  svg.setAttribute("aria-hidden", "true");
  path.setAttribute("d", icons[name]);
  svg.append(path);
  return svg;
}

/** A button with an icon, named by its title. */
export function iconButton(
  name: IconName,
  title: string,
  click: () => void,
  attributes: Attributes = {},
): HTMLButtonElement {
  return element(
    "button",
    { type: "button", title, "aria-label": title, class: "icon-button", click, ...attributes },
    icon(name),
  );
}

export function button(text: string, click: () => void, attributes: Attributes = {}): HTMLButtonElement {
  return element("button", { type: "button", click, ...attributes }, text);
}

export function checkbox(
  label: string,
  checked: boolean,
  change: (checked: boolean) => void,
  attributes: Attributes = {},
): HTMLLabelElement {
  const input = element("input", { type: "checkbox", ...attributes });
  input.checked = checked;
  input.addEventListener("change", () => change(input.checked));
  return element("label", { class: "check" }, input, element("span", {}, label));
}

export interface Choice {
  value: string;
  label: string;
}

/** A group of radio buttons. */
export function radios(
  name: string,
  label: string,
  choices: Choice[],
  value: string,
  change: (value: string) => void,
): HTMLElement {
  const group = element("fieldset", {}, element("legend", {}, label));
  for (const choice of choices) {
    const input = element("input", { type: "radio", name, value: choice.value });
    input.checked = choice.value === value;
    input.addEventListener("change", () => change(choice.value));
    group.append(element("label", { class: "check" }, input, element("span", {}, choice.label)));
  }
  return group;
}

export function selection(
  label: string,
  choices: Choice[],
  value: string,
  change: (value: string) => void,
  id: string,
): HTMLElement {
  const select = element("select", { id });
  for (const choice of choices) select.append(element("option", { value: choice.value }, choice.label));
  select.value = value;
  select.addEventListener("change", () => change(select.value));
  return element("label", { class: "field" }, element("span", {}, label), select);
}
