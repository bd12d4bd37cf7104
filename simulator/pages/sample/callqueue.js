'use strict';

/*
 * The list of the calls that the page has put into the robot's queue, and what
 * became of each.
 */
window.sample = window.sample || {};

(function (sample) {

  const MAX_CALLS = 12;
  const MAX_CONTENT = 120;   // characters

  const STATES = {
    asked: 'queuedAsked', waiting: 'queuedWaiting', refused: 'queuedRefused',
    delivered: 'queuedDelivered', failed: 'queuedFailed', dropped: 'queuedDropped',
  };
  const KINDS = { text: 'queuedText', file: 'queuedFile' };

  const { translate } = sample.language;

  // A robot that refuses a call answers with the null number, or with none.
  const isNull = (uuid) => /^\{?[0-]*\}?$/.test(uuid);

  function createCallQueue(list) {
    let calls = [];   // { kind, number, content, uuid, state }, newest first

    function draw() {
      list.replaceChildren(...calls.map(row));
      list.hidden = calls.length === 0;
    }

    function row({ kind, number, content, state }) {
      const item = sample.make('li', `queued is-${state}`);
      const shown = content.length > MAX_CONTENT ? content.slice(0, MAX_CONTENT) + '…' : content;
      item.append(
        sample.make('b', 'queued-state', translate(STATES[state])),
        sample.make('span', 'queued-about', translate(KINDS[kind], { number, content: shown })),
      );
      return item;
    }

    function ask(kind, number, content) {
      calls.unshift({ kind, number, content, uuid: null, state: 'asked' });
      calls = calls.slice(0, MAX_CALLS);
      draw();
    }

    // Answers come in the order of the requests, texts and files each for themselves.
    function accept(kind, uuid) {
      const call = [...calls].reverse().find((other) => other.kind === kind && other.state === 'asked');
      if (call) {
        call.uuid = uuid;
        call.state = isNull(uuid) ? 'refused' : 'waiting';
        draw();
      }
    }

    // A call that another page has queued is not in the list.
    function finish(uuid, success) {
      const call = calls.find((other) => other.uuid === uuid && other.state === 'waiting');
      if (call) {
        call.state = success ? 'delivered' : 'failed';
        draw();
      }
    }

    function clear() {
      calls.filter(({ state }) => state === 'waiting' || state === 'asked')
        .forEach((call) => { call.state = 'dropped'; });
      draw();
    }

    sample.language.onChange(draw);
    draw();

    return { ask, accept, finish, clear };
  }

  sample.createCallQueue = createCallQueue;

})(window.sample);
