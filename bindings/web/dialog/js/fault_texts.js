/** What the page says of an error: what happened and what to do, in plain English. */

/** An error whose text is meant for the user. */
export class UserError extends Error {
  name = "UserError";
}

const texts = {
  NotReadableError:
    "The file can't be read. It may be a folder, have been moved or changed, or belong to somebody else.",
  NotFoundError: "The file is no longer there. It may have been moved or renamed.",
  AbortError: "Cancelled.",
  QuotaExceededError: "There is no room left for the result.",
  RangeError: "There is not enough memory for this.",
};

export function faultText(error) {
  return texts[error.name] ?? error.message;
}
