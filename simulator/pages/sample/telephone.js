'use strict';

/*
 * The telephone: a call of one's own, and calls that wait in a queue and deliver
 * a spoken text or a sound file by themselves.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 10000;   // milliseconds for the answer to a request
  const MAX_TONES = 24;
  const CONNECTED = 3;

  // The keys by their tones, as telephones number them.
  const KEYS = '0123456789*#';

  // The kinds of news, by the state of the call.
  const KINDS = ['note', 'busy', 'busy', 'good', 'bad', 'bad', 'note'];

  const element = (id) => document.getElementById(id);
  const { asText, asNumber } = sample.values;
  const { chosen } = sample.fields;
  const { show } = sample.language;

  function createTelephone(app) {
    const news = sample.createNews(app, element('phone-news'), 'phoneHint');
    const wait = sample.createWait(TIME_LIMIT, () => news.tell('bad', 'noReply'));
    const queue = sample.createCallQueue(element('phone-queue'));
    let tones = [];

    const number = () => element('phone-number').value.trim();

    // --- The number --------------------------------------------------------

    function press(digit) {
      const field = element('phone-number');
      field.value = (field.value + digit).slice(0, field.maxLength);
    }

    function erase() {
      const field = element('phone-number');
      field.value = field.value.slice(0, -1);
    }

    // Calls act(number), if there is one.
    function withNumber(act) {
      if (number() === '') {
        news.tell('warning', 'phoneNoNumber');
        element('phone-number').focus();
      } else {
        act(number());
      }
    }

    // --- A call of one's own -----------------------------------------------

    function call(to) {
      tones = [];
      showTones();
      news.tell('asking', 'callAsked', to);
      wait.begin();
      app.send('sip.control', { call_start: { number: to } });
    }

    function hangUp() {
      app.send('sip.control', { call_stop: true });
    }

    function onCallResponse({ result }) {
      wait.end();
      if (result !== true) {
        news.tell('bad', 'callRefused');
      }
    }

    function onCallState(state) {
      const value = asNumber(state);
      element('phone-stop').classList.toggle('is-needed', value >= 1 && value <= CONNECTED);
      news.tell(KINDS[value] || 'note', 'callState', value);
    }

    function onTone(tone) {
      const key = (Number.isInteger(tone) && KEYS[tone]) || asText(tone);
      if (key !== '') {
        tones = tones.concat(key).slice(-MAX_TONES);
        showTones();
      }
    }

    function showTones() {
      show('phone-tones', 'tones', tones.join(' '));
      element('phone-tones').hidden = tones.length === 0;
    }

    function onEvent({ event, uuid, success, state, tone }) {
      if (event === 'public_call') {
        onCallState(state);
      } else if (event === 'tone') {
        onTone(tone);
      } else if (event === 'hidden_call') {
        queue.finish(asText(uuid), success === true);
      }
    }

    // --- Calls in the queue ------------------------------------------------

    function enqueue(kind, field, emptyKey) {
      const content = element(field).value.trim();
      if (content === '') {
        news.tell('warning', emptyKey);
        element(field).focus();
        return;
      }
      withNumber((to) => {
        queue.ask(kind, to, content);
        wait.begin();
        app.send('sip.control', {
          [`play_${kind}`]: { number: to, [kind]: content, recall_count: Number(chosen('recall')) },
        });
      });
    }

    function onQueued(kind) {
      return ({ uuid }) => {
        wait.end();
        queue.accept(kind, asText(uuid));
      };
    }

    // The robot says nothing about the calls that it drops.
    function clearQueue() {
      app.send('sip.control', { clear_queue: true });
      queue.clear();
      news.tell('note', 'queueCleared');
    }

    document.querySelectorAll('[data-digit]').forEach((button) => {
      button.addEventListener('click', () => press(button.dataset.digit));
    });
    showTones();

    return {
      reactions: [
        ['sip.call.response', onCallResponse],
        ['sip.text.response', onQueued('text')],
        ['sip.file.response', onQueued('file')],
        ['sip.events', onEvent],
      ],
      buttons: {
        'phone-erase': erase,
        'phone-call': () => withNumber(call),
        'phone-stop': hangUp,
        'phone-speak': () => enqueue('text', 'phone-text', 'phoneNoText'),
        'phone-play': () => enqueue('file', 'phone-file', 'phoneNoFile'),
        'phone-clear': sample.confirmed(clearQueue),
      },
    };
  }

  sample.createTelephone = createTelephone;

})(window.sample);
