'use strict';

/*
 * The view "Talk": the conversation, the robot's questions, and what makes the
 * robot speak: a text of one's own, or a line that its dialog engine offers.
 */
window.sample = window.sample || {};

(function (sample) {

  const REPLICA_TIME_LIMIT = 3000;   // milliseconds; without a line no reply comes

  const element = (id) => document.getElementById(id);
  const { asText, asTexts, asRecord, isRecord } = sample.values;
  const { translate, show } = sample.language;

  function createTalk(app) {
    const conversation = sample.createConversation(element('conversation'), speakerLabel);
    let replica = null;       // the line on the card, as the robot sent it
    let replicaTimer = null;

    function speakerLabel(speaker) {
      const label = sample.make('span', 'for-screen-readers');
      label.dataset.text = speaker === 'robot' ? 'robotSays' : 'userSays';
      label.textContent = translate(label.dataset.text);
      return label;
    }

    // --- The conversation --------------------------------------------------

    function onUserFound({ name }) {
      const text = asText(name);
      show('greeting', text === '' ? 'hello' : 'helloName', text);
      app.writeLog('info', 'A user has come');   // no name: logs outlive the visit
    }

    function onUserLost() {
      show('greeting', 'hello');
      app.writeLog('info', 'The user has left');
    }

    function onRobotStarts({ text }) {
      conversation.robotStarts(asText(text));
      showSpeaking(true);
    }

    function onRobotFinishes() {
      conversation.robotFinishes();
      showSpeaking(false);
    }

    function showSpeaking(isSpeaking) {
      element('face').classList.toggle('is-speaking', isSpeaking);
      element('say-stop').classList.toggle('is-needed', isSpeaking);
    }

    function onUserSaid(attributes) {
      conversation.userSays(asText(attributes.text), attributes.is_finish === true);
    }

    // A greeting has no text for the screen, other records may have an empty one.
    function showReplica(value) {
      const record = asRecord(value);
      conversation.robotShows(asText(record.text), asText(record.screen_text));
    }

    // --- Questions ---------------------------------------------------------

    function onQuestion({ text, answers }) {
      element('question-text').textContent = asText(text);
      element('question-answers').replaceChildren(...asTexts(answers).map(answerButton));
      element('question').hidden = false;
      element('view-talk').classList.add('is-asking');
      app.callToView('talk');
      element('question').scrollIntoView({ block: 'nearest' });
    }

    function answerButton(text) {
      const button = sample.make('button', 'primary', text);
      button.type = 'button';
      button.name = 'answer';
      button.addEventListener('click', () => answerQuestion(text));
      return button;
    }

    function answerQuestion(text) {
      app.send('dialog.question.answer', { text });
      conversation.userSays(text, true);
      hideQuestion();
    }

    function hideQuestion() {
      element('question').hidden = true;
      element('question-answers').replaceChildren();
      element('view-talk').classList.remove('is-asking');
    }

    // --- A text of one's own -----------------------------------------------

    function say(event) {
      event.preventDefault();
      const text = element('say-text').value.trim();
      if (text === '') {
        element('say-text').focus();
        return;
      }
      const macro = element('macro-name').value.trim();
      const attributes = { text, terminate: true };
      if (macro !== '') {
        attributes.macroses = { [macro]: element('macro-value').value };
      }
      app.send('dialog.say', attributes);
      element('say-text').value = '';
    }

    function toggleMacro() {
      const fields = element('macro-fields');
      fields.hidden = !fields.hidden;
      element('macro-toggle').setAttribute('aria-expanded', String(!fields.hidden));
      if (!fields.hidden) {
        element('macro-name').focus();
      }
    }

    // --- A line of the dialog engine ---------------------------------------

    function askForReplica(step) {
      closeReplica();
      show('replica-state', 'replicaWaiting');
      replicaTimer = setTimeout(() => show('replica-state', 'replicaNone'), REPLICA_TIME_LIMIT);
      app.send('dialog.replica.get', { step });
    }

    function onReplica({ replica: loaded }) {
      if (!isRecord(loaded)) {
        return;
      }
      closeReplica();
      replica = loaded;
      const spoken = asText(loaded.text);
      const shown = asText(loaded.screen_text) || spoken;
      element('replica-text').textContent = shown || '–';
      element('replica-spoken').hidden = shown === spoken;
      show('replica-spoken', 'replicaSpoken', spoken);
      element('replica').hidden = false;
    }

    function closeReplica() {
      clearTimeout(replicaTimer);
      replica = null;
      element('replica').hidden = true;
      show('replica-state', 'replicaUnknown');
    }

    // The record goes back as it came, so that nothing of it is lost.
    function sayReplica() {
      conversation.robotWillSay(asText(replica.text), asText(replica.screen_text));
      app.send('dialog.say', { replica, terminate: true });
      closeReplica();
    }

    element('say').addEventListener('submit', say);
    document.querySelectorAll('[data-step]').forEach((button) => {
      button.addEventListener('click', () => askForReplica(button.dataset.step));
    });
    show('greeting', 'hello');
    closeReplica();

    return {
      reactions: [
        ['user.has.user', onUserFound],
        ['user.lost.user', onUserLost],
        ['dialog.robot.replic.start', onRobotStarts],
        ['dialog.robot.replic.finish', onRobotFinishes],
        ['dialog.user.said', onUserSaid],
        ['dialog.answer.load', ({ answer }) => showReplica(asRecord(answer).replica)],
        ['dialog.greeting.load', ({ greeting }) => showReplica(greeting)],
        ['dialog.replica.extra.load', ({ replica: extra }) => showReplica(extra)],
        ['dialog.replica.load', onReplica],
        ['dialog.question.new', onQuestion],
        ['dialog.question.cancel', hideQuestion],
      ],
      buttons: {
        'say-stop': () => app.send('dialog.robot.replic.abort'),
        'macro-toggle': toggleMacro,
        'replica-say': sayReplica,
        'replica-close': closeReplica,
      },
    };
  }

  sample.createTalk = createTalk;

})(window.sample);
