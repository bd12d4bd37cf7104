'use strict';

/*
 * Mail, sent through the account of the robot.
 */
window.sample = window.sample || {};

(function (sample) {

  const TIME_LIMIT = 60000;   // milliseconds; a mail server may take its time

  const element = (id) => document.getElementById(id);
  const { told } = sample.fields;

  function createMail(app, recorder) {
    const news = sample.createNews(app, element('mail-news'), 'mailHint');
    const wait = sample.createWait(TIME_LIMIT, () => news.tell('bad', 'noReply'));

    const written = (id) => element(id).value.trim();

    // Without an address the robot sends nothing and does not answer either.
    function send(event) {
      event.preventDefault();
      const email = written('mail-to');
      if (!/^[^\s@]+@[^\s@]+$/.test(email)) {
        news.tell('warning', email === '' ? 'mailNoAddress' : 'mailBadAddress');
        element('mail-to').focus();
        return;
      }
      const attributes = { email, subject: written('mail-subject'), body: element('mail-body').value };
      if (written('mail-file') !== '') {
        attributes.filename = written('mail-file');
      }
      news.tell('asking', 'mailSending', email);
      wait.begin();
      app.send('mail.sender.request', attributes);
    }

    function onResponse({ status, code, text }) {
      wait.end();
      if (status === 'success') {
        news.tell('good', 'mailSent');
      } else {
        news.tell('bad', 'mailFailed', { code: told(code), text: told(text) });
      }
    }

    function showRecording() {
      element('mail-recording').disabled = recorder.file() === '';
    }

    element('mail').addEventListener('submit', send);
    recorder.onChange(showRecording);
    showRecording();

    return {
      reactions: [['mail.sender.response', onResponse]],
      buttons: {
        'mail-recording': () => { element('mail-file').value = recorder.file(); },
      },
    };
  }

  sample.createMail = createMail;

})(window.sample);
