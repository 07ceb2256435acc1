/** The example files that the site has, and what each is good for. */
export const examples = [
  ["rechnungen.csv", "Semicolons, decimal commas and grouped thousands"],
  ["pool_tickets.csv", "Commas below a title"],
  ["stations.txt", "Columns at fixed positions"],
  ["orbit.dat", "Aligned with blanks, names in a comment"],
  ["reviews.csv", "Line breaks inside quotes"],
  ["wind_tunnel.txt", "A comment of several lines"],
  ["wohnungen_cp1252.csv", "An old Western encoding"],
  ["cities_utf16.txt", "UTF-16, tabs, Cyrillic"],
  ["letter.txt", "No table at all"],
];
