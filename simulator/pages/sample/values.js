'use strict';

/*
 * Values from messages. Messages come from many programs: what should be a text
 * may be missing or of another type, so each value is read through one of these.
 */
window.sample = window.sample || {};

(function (sample) {

  // Only texts and numbers are worth showing.
  function asText(value) {
    if (typeof value === 'number') {
      return String(value);
    }
    return typeof value === 'string' ? value : '';
  }

  function asTexts(value) {
    return Array.isArray(value) ? value.map(asText).filter((text) => text !== '') : [];
  }

  // A finite number, or null.
  function asNumber(value) {
    return Number.isFinite(value) ? value : null;
  }

  // The number of a person or of a track, or null. The robot counts in 64 bits;
  // a number that JavaScript cannot hold exactly would name somebody else.
  function asId(value) {
    return Number.isSafeInteger(value) ? value : null;
  }

  function isRecord(value) {
    return value !== null && typeof value === 'object' && !Array.isArray(value);
  }

  function asRecord(value) {
    return isRecord(value) ? value : Object.create(null);
  }

  // Some collections come as an object under random keys: only the values count.
  function asRecords(value) {
    return Object.values(asRecord(value)).filter(isRecord);
  }

  sample.values = { asText, asTexts, asNumber, asId, asRecord, asRecords, isRecord };

})(window.sample);
