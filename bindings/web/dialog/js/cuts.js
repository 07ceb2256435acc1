/**
 * Columns at fixed positions as cuts: the places, in code units from the start of a line, where one
 * column ends and the next begins. Each function gives a new list of widths and leaves its own alone.
 */

/** The cuts between the columns; what ends the last column is none of them. */
export function cutsOf(widths) {
  let end = 0;
  return widths.slice(0, -1).map((width) => (end += width));
}

function widthsOf(cuts, total) {
  const ends = [...cuts, total];
  return ends.map((end, index) => end - (index === 0 ? 0 : ends[index - 1]));
}

function totalOf(widths) {
  return widths.reduce((sum, width) => sum + width, 0);
}

/** Where a cut may stand: every column keeps at least one unit. */
export function rangeOf(widths, index) {
  const ends = [0, ...cutsOf(widths), totalOf(widths)];
  return { least: ends[index] + 1, most: ends[index + 2] - 1 };
}

export function moveCut(widths, index, position) {
  const { least, most } = rangeOf(widths, index);
  const cuts = cutsOf(widths);
  cuts[index] = Math.min(Math.max(position, least), most);
  return widthsOf(cuts, totalOf(widths));
}

export function removeCut(widths, index) {
  return widthsOf(
    cutsOf(widths).filter((_, other) => other !== index),
    totalOf(widths),
  );
}

/** A cut where there is one already, or outside of the columns, changes nothing. */
export function addCut(widths, position) {
  const cuts = cutsOf(widths);
  if (position < 1 || position >= totalOf(widths) || cuts.includes(position)) {
    return widths;
  }
  return widthsOf(
    [...cuts, position].sort((a, b) => a - b),
    totalOf(widths),
  );
}

/** The middle of the widest column, for a cut that is added without saying where. */
export function middleOfWidest(widths) {
  const index = widths.indexOf(Math.max(...widths));
  const begin = index === 0 ? 0 : cutsOf(widths)[index - 1];
  return begin + Math.floor(widths[index] / 2);
}
