'use strict';

/*
 * The robot's database of people, as a page reads and writes it: one request at
 * a time, because a reply does not say which request it belongs to.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 5000;   // milliseconds for a reply
  const STORE = 'panorel.sample.people';
  const MAX_PEOPLE = 200;

  const { asId, isRecord } = sample.values;

  // request(attributes, onReply): onReply gets the response, or null when none
  // came in time.
  function createUserRequests(app) {
    const waiting = [];
    let current = null;
    let timer = null;
    let isStarted = false;

    function request(attributes, onReply) {
      // Reads wait behind what somebody asked for by hand, and one for each person is enough.
      const isRead = (entry) => 'get_user' in entry.attributes;
      const entry = { attributes, onReply };
      const same = waiting.find((other) => isRead(entry) && isRead(other)
        && other.attributes.get_user === attributes.get_user);
      if (same) {
        same.onReply = onReply;
      } else if (isRead(entry)) {
        waiting.push(entry);
      } else {
        const firstRead = waiting.findIndex(isRead);
        waiting.splice(firstRead < 0 ? waiting.length : firstRead, 0, entry);
      }
      sendNext();
    }

    function sendNext() {
      if (!isStarted || current || waiting.length === 0) {
        return;
      }
      current = waiting.shift();
      timer = setTimeout(() => finish(null), TIME_LIMIT);
      app.send('database.user.request', current.attributes);
    }

    function finish(response) {
      const { onReply } = current;
      clearTimeout(timer);
      current = null;
      onReply(response);
      sendNext();
    }

    // A late reply to an earlier request has other members, or another person.
    function onResponse({ response }) {
      if (current && isRecord(response) && belongs(current.attributes, response)) {
        finish(response);
      }
    }

    function belongs(attributes, response) {
      const person = response.get_user;
      return Object.keys(attributes).every((key) => key in response)
        && !(isRecord(person) && person.id !== attributes.get_user);
    }

    function start() {
      isStarted = true;
      sendNext();
    }

    return { request, onResponse, start };
  }

  // The database cannot list its people, so the page remembers their numbers.
  // Some hosts allow a page no storage: then it remembers until it is closed.
  function loadIds() {
    try {
      const ids = JSON.parse(window.localStorage.getItem(STORE));
      return Array.isArray(ids) ? ids.map(asId).filter((id) => id !== null).slice(0, MAX_PEOPLE) : [];
    } catch (error) {
      return [];
    }
  }

  function saveIds(ids) {
    try {
      window.localStorage.setItem(STORE, JSON.stringify(ids));
    } catch (error) {
      // Nothing is lost but the list after a restart.
    }
  }

  sample.userData = { createUserRequests, loadIds, saveIds, MAX_PEOPLE };

})(window.sample);
